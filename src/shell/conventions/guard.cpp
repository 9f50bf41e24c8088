#include "shell/conventions/guard.h"

#include "platform/basics/number_text.h"
#include "platform/basics/run_time_error.h"

using namespace Qt::StringLiterals;

namespace shell {

[[noreturn]] static void End_With(desktop::Platform& platform, const QString& description) {
    platform.pointer.Set(desktop::Pointer_Shape::Default);
    platform.boxes.Ask(desktop::Box_Style::Critical, desktop::Default_Box_Title(), description);
    platform.processes.End(1);
}

void Guarded(desktop::Platform& platform, const std::function<void()>& work) {
    try {
        work();
    } catch (const basics::Run_Time_Error& error) {
        End_With(platform, u"Run-time error '"_s + basics::Plain_Number(error.Number) + u"':\r\r"_s +
                               error.Description);
    } catch (const std::bad_alloc&) {
        End_With(platform, u"Run-time error '7':\r\rOut of memory"_s);
    }
}

} // namespace shell
