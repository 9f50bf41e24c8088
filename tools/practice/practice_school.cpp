#include "practice/practice_school.h"

#include "foundation/school_look.h"
#include "foundation/start_up.h"
#include "keeping/change_list.h"
#include "keeping/earlier_takings.h"
#include "sampledb/sample_data.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace practice {

constexpr int Pupils = 24;
constexpr quint32 Seed = 13; // under which all of them are four to eight years old on the last day
// The last day on which a made-up pupil is tested, or a few days after it.
const QDate Last_Day(2026, 7, 20);

QString Customary_Folder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/mevo/practice"_s;
}

[[noreturn]] static void Refuse(const QString& why) {
    throw std::runtime_error(why.toStdString());
}

static void Require_Practice_School(const QString& file) {
    const foundation::School_Look look = foundation::Look_At_School(file);
    if (look.kind != foundation::School_Look::Kind::School || look.school != School_Name())
        Refuse(u"%1 is no practice school, and stays as it is: %2"_s.arg(QDir::toNativeSeparators(file),
                                                                         foundation::In_Words(look)));
}

void Provide_School(const QString& folder, QDate today, If_There_Is_One if_there_is_one) {
    const QDir place(folder);
    if (!place.mkpath(u"."_s)) Refuse(u"The folder %1 can't be made."_s.arg(folder));
    const QString working = place.filePath(foundation::Working_File);
    const QString empty = place.filePath(foundation::Template_File);
    bool is_there = true;
    for (const QString& file : {working, empty}) {
        if (QFileInfo::exists(file))
            Require_Practice_School(file);
        else
            is_there = false;
    }
    if (is_there && if_there_is_one == If_There_Is_One::Keep) return;
    for (const QString& remembered : {keeping::Companion_Of(working), keeping::Changes_Of(working)})
        QFile::remove(remembered);
    sample_data::Write_Template(empty, Seed, School_Name());
    sample_data::Write_Database(
        working,
        {.pupils = Pupils, .seed = Seed, .days_later = int(Last_Day.daysTo(today)), .school = School_Name()});
}

} // namespace practice
