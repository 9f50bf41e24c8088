#pragma once

#include "conversion/jet_source.h"
#include "foundation/school_look.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace set_up {

struct Found_Database {
    QString file; // native, with its folder
    foundation::School_Look look;
};

// The databases of a folder, the working one and the template first, then others from the newest on. Of these
// no more than the first few are looked into.
struct Found_Databases {
    std::optional<Found_Database> working;
    std::optional<Found_Database> empty_template;
    QList<Found_Database> others;
    int not_looked_into = 0;

    bool Can_Be_Used() const; // both are there and a school's
    QStringList In_Words() const;
};
Found_Databases Databases_In(const QString& folder);

struct New_School {
    QString name;
    QStringList classes;
    std::optional<QString> password; // else the template's stays
};

// Names of classes divided by commas. Throws a Refusal for one that is too long or named twice.
QStringList Classes_Of(const QString& text);

// Each puts the working database and the template into a folder that is there, and neither where something
// stands at the working one's place. Older files are converted. A Refusal says in plain words why not.

// From the school's own template: `from`, or where that is empty what lies in the folder already. The
// school's name is written into both, or a clean start would lose it.
void Make_Empty_School(const QString& folder, const New_School& school, const QString& from,
                       const conversion::Reader_Program& reader, const conversion::Watcher& watcher);
// From a school's database, whose template lies beside it or in the folder already; or from a folder with
// both.
void Bring_School(const QString& folder, const QString& from, const conversion::Reader_Program& reader,
                  const conversion::Watcher& watcher);

} // namespace set_up
