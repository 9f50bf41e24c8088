#include "foundation/database_words.h"

#include "foundation/schema.h"
#include "platform/basics/run_time_error.h"
#include "platform/database/database_file.h"
#include "platform/database/files/file_look.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace foundation {

using Kind = Known_File::Kind;

constexpr int Longest_Wait = 1; // seconds: the user looks through a folder

static bool Is_Of_The_Older_Format(const QString& file) {
    QFile opened(file);
    return opened.open(QIODevice::ReadOnly) && opened.read(32).mid(4).startsWith("Standard Jet DB");
}

// In the order of the answers. What counts as a result is as on the Main menu.
static QStringList Questions() {
    return {
        u"SELECT Institution FROM Customer_Details WHERE Product_Name = 'MEVO'"_s,
        u"SELECT count(*) FROM Mevo_Pupils"_s,
        u"SELECT count(*) FROM Mevo_Pupils WHERE Tolvens + BliksFriends + Karrel + BliksLetters + BliksLetterNames + Drell + Mirvel + Yoon > 0"_s};
}

static Known_File Known_By(const database::File_Look& look) {
    Known_File known;
    known.why = look.damage;
    if (!look.damage.isEmpty()) {
        known.kind = Kind::Damaged;
    } else if (database::Lacking(look.tables, Needed_Tables()).isEmpty()) {
        known.kind = Kind::Of_The_Suite;
        known.school = look.answers[0].isEmpty() ? QString() : look.answers[0].last().simplified();
        known.pupils = look.answers[1].value(0).toInt();
        known.with_results = look.answers[2].value(0).toInt();
        known.is_of_version_51 = Is_Of_Version_51(look.tables);
    }
    return known;
}

Known_File Know(const QString& file) {
    Known_File known;
    try {
        known = Known_By(database::Look_Into(file, Questions(), Longest_Wait));
    } catch (const basics::Run_Time_Error& error) {
        known.why = error.Description;
        if (Is_Of_The_Older_Format(file))
            known.kind = Kind::Older_Format;
        else if (database::Looks_Like_A_Database(file) || !QFile(file).open(QIODevice::ReadOnly))
            known.kind = Kind::Unreadable;
    }
    return known;
}

static QString Pupils_In_Words(const Known_File& file) {
    const QString pupils = file.pupils == 1 ? u"1 pupil"_s : u"%1 pupils"_s.arg(file.pupils);
    return u"%1, %2 with results"_s.arg(pupils).arg(file.with_results);
}

QString In_Words(const Known_File& file) {
    switch (file.kind) {
    case Kind::Of_The_Suite:
        return u"%1: %2. %3"_s.arg(file.school.isEmpty() ? u"A school without a name"_s : file.school,
                                   Pupils_In_Words(file),
                                   file.is_of_version_51 ? u"Version 5.1."_s : u"Older than version 5.1."_s);
    case Kind::Damaged:
        return u"Damaged, and may fail to open: "_s + file.why;
    case Kind::Older_Format:
        return u"Saved in the older Access format. You will be asked whether to convert it."_s;
    case Kind::Unreadable:
        return u"What this is can't be read now: "_s + file.why;
    case Kind::Foreign:
        break;
    }
    return u"This is no database of Mevo."_s;
}

} // namespace foundation
