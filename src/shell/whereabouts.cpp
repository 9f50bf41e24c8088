#include "shell/whereabouts.h"

#include "platform/basics/native_path.h"
#include "platform/basics/run_time_error.h"
#include "platform/database/database_file.h"
#include "platform/database/files/file_engine.h"
#include "platform/database/files/file_rights.h"
#include "platform/database/files/kept_copies.h"

#include <QDir>
#include <QRegularExpression>
#include <QUrl>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace shell {

using basics::Native_Path;

namespace {

// ---- the last archive

QString Key_Of_Last_Archive(const foundation::Installation& installation) {
    return u"Archived/"_s +
           QString::fromLatin1(QUrl::toPercentEncoding(Native_Path(installation.Database_Path)));
}

// A suggested name tells the day, which a later load of the archive doesn't change.
QDate Day_Of(const QFileInfo& archive) {
    static const QRegularExpression form(u"^Mevo05_(\\d\\d)(\\d\\d)(\\d\\d)_\\d{4}\\.mdb$"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    const auto match = form.match(archive.fileName());
    const auto part = [&match](int number) { return match.captured(number).toInt(); };
    const QDate named(2000 + part(3), part(2), part(1));
    return match.hasMatch() && named.isValid() ? named : archive.lastModified().date();
}

// On a share the archives lie beside the working database and the template.
QDate Last_Archive(const foundation::Installation& installation, desktop::Platform& platform) {
    QDate last =
        QDate::fromString(platform.settings.Value(Key_Of_Last_Archive(installation), {}), Qt::ISODate);
    const QFileInfo no_archives[] = {QFileInfo(Native_Path(installation.Database_Path)),
                                     QFileInfo(Native_Path(installation.Empty_Database_Path))};
    if (installation.Archive_Folder.isEmpty()) return last; // start-up couldn't find it
    const QDir folder(Native_Path(installation.Archive_Folder));
    for (const QFileInfo& file : folder.entryInfoList({u"*.mdb"_s}, QDir::Files)) {
        const bool is_none =
            std::find(std::begin(no_archives), std::end(no_archives), file) != std::end(no_archives) ||
            database::Has_Name_Of_Kept_Copy(file.filePath());
        const QDate day = Day_Of(file);
        if (!is_none && last < day && database::Looks_Like_A_Database(file.filePath())) last = day;
    }
    return last;
}

// ---- warnings

struct Limit {
    int more_than;
    QString words;
};

// Of the first limit that is passed.
QString Words_For(int number, std::initializer_list<Limit> limits) {
    for (const Limit& limit : limits)
        if (number > limit.more_than) return u"%1 %2"_s.arg(number).arg(limit.words);
    return {};
}

struct Found_In_File {
    QString school;
    int groups = 0; // none before version 5.1
};

Found_In_File Look(const QString& file) {
    constexpr int longest_wait = 1;
    database::File_Engine engine(file, database::Access::Read_Only, longest_wait);
    const QStringList schools =
        engine.Run(u"SELECT Institution FROM Customer_Details WHERE Product_Name = 'MEVO'"_s);
    const bool has_groups =
        !engine.Run(u"SELECT 1 FROM sqlite_master WHERE type = 'table' AND name LIKE 'Mevo_Groups'"_s)
             .isEmpty();
    return {schools.isEmpty() ? QString() : schools.last().simplified(),
            has_groups ? engine.Run(u"SELECT count(*) FROM Mevo_Groups"_s).value(0).toInt() : 0};
}

QStringList Warnings(const foundation::Installation& installation, bool is_archive, int pupils, int groups) {
    QStringList warnings;
    if (!installation.Viewing_Mode &&
        !database::May_Be_Written(
            Native_Path(is_archive ? installation.Current_Database_Path : installation.Database_Path)))
        warnings.append(u"can't be written here: nothing that you enter will be stored"_s);
    if (installation.Share_Is_Away) warnings.append(u"this is not the share named in the settings"_s);
    if (is_archive) warnings.append(u"an archive is in view"_s);
    warnings.append(
        Words_For(pupils, {{2400, u"pupils: the lists end at 2500, and the batch report at 2000"_s},
                           {1900, u"pupils: the batch report ends at 2000"_s}}));
    warnings.append(Words_For(groups, {{95, u"groups: the lists end at 100"_s}}));
    warnings.removeAll(QString());
    return warnings;
}

Whereabouts Found(const foundation::Installation& installation, const Menu_Counts& counts,
                  desktop::Platform& platform) {
    // An older archive that wasn't brought up is in use without Viewing Mode.
    const bool is_archive =
        installation.Connection_String != foundation::Connection_String_For(installation.Database_Path);
    const QFileInfo file(
        Native_Path(is_archive ? installation.Current_Database_Path : installation.Database_Path));
    const Found_In_File found = Look(file.filePath());
    const int pupils = counts.Number_Of_Students.Is_Empty() ? 0 : counts.Number_Of_Students.As_Integer();
    return {Warnings(installation, is_archive, pupils, found.groups), found.school,
            QDir::toNativeSeparators(is_archive ? file.filePath() : file.path()),
            Age_In_Words(Last_Archive(installation, platform), platform.clock.Now().date())};
}

} // namespace

QString Age_In_Words(const QDate& archived, const QDate& today) {
    if (!archived.isValid()) return u"not archived yet"_s;
    const qint64 days = archived.daysTo(today);
    if (days <= 0) return u"last archived today"_s;
    if (days == 1) return u"last archived yesterday"_s;
    if (days < 14) return u"last archived %1 days ago"_s.arg(days);
    if (days < 60) return u"last archived %1 weeks ago"_s.arg(days / 7);
    if (days < 365) return u"last archived %1 months ago"_s.arg(days / 30);
    return u"last archived more than a year ago"_s;
}

Whereabouts Find_Whereabouts(const foundation::Installation& installation, const Menu_Counts& counts,
                             desktop::Platform& platform) {
    try {
        return Found(installation, counts, platform);
    } catch (const std::exception&) {
        return {}; // nobody has asked for it
    }
}

void Remember_Archive(const foundation::Installation& installation, desktop::Platform& platform) {
    platform.settings.Keep(Key_Of_Last_Archive(installation),
                           platform.clock.Now().date().toString(Qt::ISODate));
}

} // namespace shell
