#include "pupils/import/registered.h"

#include "platform/basics/run_time_error.h"
#include "platform/database/connection.h"
#include "platform/database/recordset.h"
#include "pupils/import/pupil_fields.h"

using namespace Qt::StringLiterals;

namespace pupils {

QString Registered::Key(const QString& surname, const QString& forename) {
    return (Normalise_Hyphen(surname).simplified() + QChar(0x1F) + forename.simplified()).toCaseFolded();
}

void Registered::Add(const QString& surname, const QString& forename, const Registered_Pupil& pupil) {
    pupils[Key(surname, forename)].append(pupil);
    ++count;
}

void Registered::Add_Group(const QString& name) {
    groups.append(name);
}

QList<Registered_Pupil> Registered::Of_Name(const QString& surname, const QString& forename) const {
    return pupils.value(Key(surname, forename));
}

bool Registered::Has_Group(const QString& name) const {
    return groups.contains(name, Qt::CaseInsensitive);
}

namespace {

template<class Take>
void Walk_Rows(database::Connection& connection, const QString& sql, const Take& take) {
    database::Recordset rows;
    rows.Set_ActiveConnection(&connection);
    rows.Source = sql;
    for (rows.Open(); !rows.Eof(); rows.MoveNext())
        take([&rows](const QString& column) { return rows.Fields(column).Value(); });
}

void Read_All(database::Connection& connection, Registered& registered) {
    Walk_Rows(connection, u"SELECT Surname, Forename, DOB, Group_Class FROM Mevo_Pupils"_s,
              [&](const auto& field) {
                  const basics::Value born = field(u"DOB"_s);
                  QDate birthday;
                  try {
                      birthday = born.As_Date().date();
                  } catch (const basics::Run_Time_Error&) {
                      // A pupil without a date is still one of that name.
                  }
                  registered.Add(field(u"Surname"_s).Text_Or_Empty(), field(u"Forename"_s).Text_Or_Empty(),
                                 {birthday, field(u"Group_Class"_s).Text_Or_Empty()});
              });
    Walk_Rows(connection, u"SELECT Group_Name FROM mevo_groups"_s,
              [&](const auto& field) { registered.Add_Group(field(u"Group_Name"_s).Text_Or_Empty()); });
}

} // namespace

Registered Read_Registered(const QString& connection_string) {
    Registered registered;
    try {
        database::Connection connection;
        connection.ConnectionString = connection_string;
        connection.Open();
        Read_All(connection, registered);
    } catch (const basics::Run_Time_Error& error) {
        registered = {};
        registered.why_unknown = error.Description;
    }
    return registered;
}

} // namespace pupils
