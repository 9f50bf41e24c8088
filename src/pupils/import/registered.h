#pragma once

#include <QDate>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace pupils {

// Who is registered already, as far as a list to come is compared with it.
struct Registered_Pupil {
    QDate birthday; // none if the database holds no date that can be read
    QString group;
};

// Names are the same whatever their letters' case; that is how the groups' names are compared as well.
class Registered {
public:
    void Add(const QString& surname, const QString& forename, const Registered_Pupil& pupil);
    void Add_Group(const QString& name);

    QList<Registered_Pupil> Of_Name(const QString& surname, const QString& forename) const;
    bool Has_Group(const QString& name) const;
    const QStringList& Groups() const { return groups; }
    int Count() const { return count; }

    static QString Key(const QString& surname, const QString& forename);

    QString why_unknown; // the database couldn't be read, so nobody is known; empty if it was

private:
    QHash<QString, QList<Registered_Pupil>> pupils;
    QStringList groups;
    int count = 0;
};

// Reads pupils and groups. It shows nothing: a database that can't be read leaves all unknown, with the
// reason.
Registered Read_Registered(const QString& connection_string);

} // namespace pupils
