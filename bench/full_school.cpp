#include "full_school.h"

#include "foundation/start_up.h"
#include "sampledb/sample_data.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace bench {

constexpr QSize Common_Screen{1366, 768};

Full_School::Full_School(desktop::Platform& platform, int pupils, qint16 most_listed)
    : size(pupils),
      platform(platform),
      holder(platform),
      scoring(scoring::Pass_Over(data, installation, holder)) {
    const QString file = folder.filePath(u"Mevo05Data.mdb"_s);
    sample_data::Write_Database(file, {pupils, 1});
    installation.App_Path = QApplication::applicationDirPath();
    installation.Current_Database_Path = file;
    installation.Database_Path = file;
    installation.Connection_String = foundation::Connection_String_For(file);
    scoring::Load_Pupil_Lists(holder, installation, platform.clock, data.pupils);
    if (data.pupils.Pupils_Listed > most_listed) size = data.pupils.Pupils_Listed = most_listed;
    window.resize(Common_Screen);
    window.show();
}

int Full_School::Read(const QString& sql) const {
    return Read_Plainly(installation.Current_Database_Path, sql);
}

int Full_School::Read_Row(const QString& table, int p) const {
    return Read(u"SELECT * FROM "_s + table + u" WHERE StudentCode = '"_s + data.pupils.Student_Code[p] +
                u'\'');
}

} // namespace bench
