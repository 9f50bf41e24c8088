#include "shell/conventions/guard.h"

#include "platform/basics/number_text.h"
#include "platform/basics/run_time_error.h"

using namespace Qt::StringLiterals;

namespace shell {

[[noreturn]] static void End_With(desktop::Platform& platform, int number, const QString& description) {
    platform.pointer.Set(desktop::Pointer_Shape::Default);
    platform.boxes.Ask(desktop::Box_Style::Critical, desktop::Default_Box_Title(),
                       u"Run-time error '"_s + basics::Plain_Number(number) + u"':\r\r"_s + description);
    platform.processes.End(1);
}

void Guarded(desktop::Platform& platform, const std::function<void()>& work) {
    try {
        work();
    } catch (const basics::Run_Time_Error& error) {
        End_With(platform, error.Number, error.Description);
    } catch (const std::bad_alloc&) {
        End_With(platform, basics::errors::Out_Of_Memory, u"Out of memory"_s);
    }
}

} // namespace shell
