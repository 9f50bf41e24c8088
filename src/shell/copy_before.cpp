#include "shell/copy_before.h"

#include "keeping/earlier_takings.h"
#include "platform/database/files/page_copies.h"
#include "platform/desktop/wait_pointer.h"

using namespace Qt::StringLiterals;

namespace shell {

namespace {

// For the copy's name; empty for a page that can't lose anybody.
QString Reason_Of(Page_Id page) {
    switch (page) {
    case Page_Id::Delete:
        return u"delete"_s;
    case Page_Id::Import:
        return u"import"_s;
    case Page_Id::Security:
        return u"security"_s;
    case Page_Id::Fine_Tuning:
        return u"fine_tuning"_s;
    default:
        return {};
    }
}

} // namespace

void Copy_Before(Page_Id page, const foundation::Installation& installation, desktop::Platform& platform) {
    constexpr int longest_wait = 1; // seconds, for a file in use
    const QString reason = Reason_Of(page);
    if (reason.isEmpty()) return;
    Paint_Meanwhile(platform); // the page's own connections are let go by this too
    const desktop::Wait_Pointer busy(platform.pointer);
    const QString database = foundation::Database_Named_In(installation.Connection_String);
    keeping::Quietly([&] {
        database::Copy_If_Changed({database,
                                   reason,
                                   platform.clock.Now(),
                                   {installation.Current_Database_Path},
                                   [&](const QString& copy) {
                                       keeping::Quietly([&] { keeping::Copy_Companion(database, copy); });
                                   }},
                                  longest_wait);
    });
}

} // namespace shell
