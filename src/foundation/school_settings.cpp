#include "foundation/school_settings.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace foundation {

static const QString Section = u"Reports"_s;
static const QString Margins_Key = u"Keep_To_Margins"_s;

QString School_Settings_File(const QString& database_path) {
    const qsizetype folder_end = std::max(database_path.lastIndexOf(u'\\'), database_path.lastIndexOf(u'/'));
    return database_path.left(folder_end + 1) + u"Mevo05School.ini"_s;
}

QString School_Settings_Text(bool keep_to_margins) {
    return u"[%1]\r\n%2=%3\r\n"_s.arg(Section, Margins_Key).arg(keep_to_margins ? 1 : 0);
}

QString Margins_Of_School(desktop::Platform& platform, const Installation& installation) {
    return platform.ini.Value(School_Settings_File(installation.Database_Path), Section, Margins_Key, {});
}

} // namespace foundation
