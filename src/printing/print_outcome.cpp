#include "printing/print_outcome.h"

#include "platform/basics/run_time_error.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace printing {

void Telling_Printer_Errors(desktop::Platform& platform, const std::function<void()>& job) {
    try {
        job();
    } catch (const basics::Run_Time_Error& error) {
        platform.boxes.Ask(desktop::Box_Style::Critical, desktop::Default_Box_Title(), error.Description);
    }
}

QString Named(const QStringList& pupils) {
    constexpr qsizetype most = 12;
    const QString names = pupils.first(std::min(pupils.size(), most)).join(u'\r');
    return pupils.size() <= most ? names : names + u"\rand %1 more"_s.arg(pupils.size() - most);
}

} // namespace printing
