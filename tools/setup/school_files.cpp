#include "setup/school_files.h"

#include "conversion/convert.h"
#include "conversion/jet_file.h"
#include "conversion/refusal.h"
#include "foundation/database_version.h"
#include "foundation/start_up.h"
#include "keeping/earlier_takings.h"
#include "platform/basics/native_path.h"
#include "platform/basics/run_time_error.h"
#include "platform/database/engine.h"
#include "platform/database/files/new_file.h"
#include "platform/database/files/safe_copy.h"
#include "setup/folders.h"
#include "setup/quiet_ports.h"

#include <QDir>
#include <QFileInfo>
#include <functional>

using namespace Qt::StringLiterals;

namespace set_up {

using conversion::Refusal;
using foundation::School_Look;

namespace {

constexpr int Most_Looked_Into = 8;
constexpr qsizetype Longest_Class = 50;

// As it lies on the disk, whatever its letter case; the customary name where there is none.
QString Place_Of(const QString& folder, QLatin1StringView name) {
    return basics::Native_Path(folder + u'/' + name);
}

std::optional<Found_Database> Look_For(const QString& file) {
    if (!QFileInfo(file).isFile()) return std::nullopt;
    return Found_Database{QDir::toNativeSeparators(file), foundation::Look_At_School(file)};
}

QString Line_Of(const Found_Database& found) {
    return u"%1: %2"_s.arg(QFileInfo(found.file).fileName(), foundation::In_Words(found.look));
}

bool Is_School(const std::optional<Found_Database>& found) {
    return found && found->look.kind == School_Look::Kind::School;
}

} // namespace

bool Found_Databases::Can_Be_Used() const {
    return Is_School(working) && Is_School(empty_template);
}

QStringList Found_Databases::In_Words() const {
    QStringList lines;
    for (const auto& found : {working, empty_template})
        if (found) lines.append(Line_Of(*found));
    for (const Found_Database& found : others)
        lines.append(Line_Of(found));
    if (not_looked_into > 0) lines.append(u"and %1 older ones."_s.arg(not_looked_into));
    return lines;
}

Found_Databases Databases_In(const QString& folder) {
    Found_Databases found;
    const QString working = Place_Of(folder, foundation::Working_File);
    const QString empty = Place_Of(folder, foundation::Template_File);
    found.working = Look_For(working);
    found.empty_template = Look_For(empty);
    for (const QFileInfo& file : QDir(folder).entryInfoList({u"*.mdb"_s}, QDir::Files, QDir::Time)) {
        if (file == QFileInfo(working) || file == QFileInfo(empty)) continue;
        if (found.others.size() < Most_Looked_Into)
            found.others.append(*Look_For(file.filePath()));
        else
            ++found.not_looked_into;
    }
    return found;
}

QStringList Classes_Of(const QString& text) {
    QStringList classes;
    for (const QString& part : text.split(u',', Qt::SkipEmptyParts)) {
        QString name = part.simplified();
        name.remove(u'\''); // as the page for groups does
        if (name.isEmpty()) continue;
        if (name.size() > Longest_Class)
            throw Refusal(u"The class %1 has more than 50 characters."_s.arg(name));
        if (classes.contains(name, Qt::CaseInsensitive))
            throw Refusal(u"The class %1 is named twice."_s.arg(name));
        classes.append(name);
    }
    return classes;
}

namespace {

class Bringing {
public:
    Bringing(const QString& folder, const conversion::Reader_Program& reader,
             const conversion::Watcher& watcher)
        : folder(folder), reader(reader), watcher(watcher) {}

    QString Place(QLatin1StringView name) const { return Place_Of(folder, name); }

    // Puts a changed copy at a place that holds nothing.
    using Change = std::function<void(const QString& copy)>;
    void Put(const QString& source, const QString& place, const Change& change) const {
        database::New_File fresh(place, source);
        fresh.Flush_And_Close();
        if (conversion::Is_Jet_File(source))
            conversion::Convert_Jet_File(source, fresh.Path(), conversion::If_There_Is_One::Replace, reader,
                                         watcher);
        else
            database::Safe_Copies().Copy(source, fresh.Path());
        change(fresh.Path());
        if (!fresh.Move_Unless_Taken()) throw Refusal(u"%1 is there already."_s.arg(place));
        Open_To_Users_Of_Its_Folder(place);
        Bring_Earlier_Results(source, place);
    }

    // The school is there with or without them.
    static void Bring_Earlier_Results(const QString& source, const QString& place) {
        if (QFileInfo::exists(keeping::Companion_Of(source)))
            keeping::Quietly([&] { keeping::Copy_Companion(source, place); });
    }

    School_Look Looked_Into(const QString& copy, const QString& source) const {
        const School_Look look = foundation::Look_At_School(copy);
        if (look.kind != School_Look::Kind::School)
            throw Refusal(u"%1: %2"_s.arg(QDir::toNativeSeparators(source), look.why));
        return look;
    }

private:
    const QString& folder;
    const conversion::Reader_Program& reader;
    const conversion::Watcher& watcher;
};

void Refuse_Where_A_School_Is(const Bringing& to) {
    const QString place = to.Place(foundation::Working_File);
    if (!QFileInfo::exists(place)) return;
    throw Refusal(u"A database lies there already, and stays as it is: %1. %2"_s.arg(
        QDir::toNativeSeparators(place), foundation::In_Words(foundation::Look_At_School(place))));
}

// All that is done with the engine or a file here fails in words of its own.
template<class Work>
void In_Plain_Words(const Work& work) {
    try {
        work();
    } catch (const basics::Run_Time_Error& error) {
        throw Refusal(error.Description);
    }
}

void Bring_Up_To_51(const QString& file, const School_Look& look) {
    if (look.is_51) return;
    foundation::Installation installation;
    installation.Connection_String = foundation::Connection_String_For(file);
    Quiet_Ports quiet;
    if (!foundation::Convert_Database_To_51(installation, quiet.Ports())) throw Refusal(quiet.Said());
}

// Each statement can be repeated, so that what a power cut ended is done again.
void Write_School(const QString& file, const New_School& school, const QStringList& classes) {
    constexpr int timeout_seconds = 15;
    database::Engine engine(foundation::Connection_String_For(file), timeout_seconds);
    const QString row = u" WHERE Product_Name = 'MEVO' COLLATE BINARY"_s;
    if (engine.Run(u"UPDATE Customer_Details SET Institution = ?1"_s + row, {school.name}).affected == 0)
        engine.Run(u"INSERT INTO Customer_Details (Product_Name, Product_Version, CustomerName, Institution, "
                   u"Admin_Password) "
                   "VALUES ('MEVO', '5.11', ?1, ?1, '')"_s,
                   {school.name});
    if (school.password)
        engine.Run(u"UPDATE Customer_Details SET Admin_Password = ?1"_s + row, {*school.password});
    for (const QString& name : classes)
        engine.Run(u"INSERT INTO Mevo_Groups (ID, Group_Name, Dob_as_pw, Show_On_List, XtraField) "
                   "SELECT (SELECT 1 + coalesce(max(ID), 0) FROM Mevo_Groups), ?1, 0, 1, '' "
                   "WHERE NOT EXISTS (SELECT 1 FROM Mevo_Groups WHERE Group_Name = ?1)"_s,
                   {name});
}

} // namespace

void Make_Empty_School(const QString& folder, const New_School& school, const QString& from,
                       const conversion::Reader_Program& reader, const conversion::Watcher& watcher) {
    const Bringing to(folder, reader, watcher);
    Refuse_Where_A_School_Is(to);
    const QString place = to.Place(foundation::Template_File);
    const QString source = from.isEmpty() ? place : from;
    if (!QFileInfo(source).isFile())
        throw Refusal(u"The school's own template is needed: the file Mevo05EmptyDatabase.mdb, which holds "
                      u"the norms and came with "
                      "the suite. There is no %1."_s.arg(QDir::toNativeSeparators(source)));
    const auto fill = [&](const QString& copy, bool with_classes) {
        const School_Look look = to.Looked_Into(copy, source);
        if (look.pupils > 0)
            throw Refusal(u"%1 is no template: it holds pupils (%2)."_s.arg(QDir::toNativeSeparators(source),
                                                                            foundation::In_Words(look)));
        if (with_classes) Bring_Up_To_51(copy, look);
        Write_School(copy, school, with_classes ? school.classes : QStringList());
    };
    In_Plain_Words([&] {
        // The template first: what is then interrupted can be done again.
        if (!QFileInfo::exists(place))
            to.Put(source, place, [&](const QString& copy) { fill(copy, false); });
        else
            fill(place, false);
        to.Put(place, to.Place(foundation::Working_File), [&](const QString& copy) { fill(copy, true); });
    });
}

void Bring_School(const QString& folder, const QString& from, const conversion::Reader_Program& reader,
                  const conversion::Watcher& watcher) {
    const Bringing to(folder, reader, watcher);
    Refuse_Where_A_School_Is(to);
    const QFileInfo given(from);
    const QString beside = given.isDir() ? given.absoluteFilePath() : given.absolutePath();
    const QString data =
        given.isDir() ? Place_Of(beside, foundation::Working_File) : given.absoluteFilePath();
    const QString empty = Place_Of(beside, foundation::Template_File);
    const QString place = to.Place(foundation::Template_File);
    if (!QFileInfo(data).isFile())
        throw Refusal(u"There is no file %1."_s.arg(QDir::toNativeSeparators(data)));
    if (!QFileInfo(empty).isFile() && !QFileInfo(place).isFile())
        throw Refusal(
            u"The school's own template is needed too: the file Mevo05EmptyDatabase.mdb, beside %1."_s.arg(
                QDir::toNativeSeparators(data)));
    In_Plain_Words([&] {
        if (!QFileInfo::exists(place))
            to.Put(empty, place, [&](const QString& copy) { to.Looked_Into(copy, empty); });
        to.Put(data, to.Place(foundation::Working_File),
               [&](const QString& copy) { to.Looked_Into(copy, data); });
    });
}

} // namespace set_up
