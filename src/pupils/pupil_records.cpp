#include "pupils/pupil_records.h"

#include "platform/basics/dates.h"
#include <QStringBuilder>

using namespace Qt::StringLiterals;

namespace pupils {

void Load_Groups(foundation::Access_Holder& holder, const foundation::Installation& installation,
                 Group_Lists& groups) {
    holder.ado_Open(installation.Connection_String, u"SELECT * FROM mevo_groups"_s, u"Optimistic"_s);
    qint16 count = 0;
    holder.ado_RSCount(count);
    for (int i = 1; i <= count; ++i) {
        groups.Group_Names[i] = holder.Field(u"Group_Name"_s).Text_Or_Empty();
        groups.Group_Show_On_List[i] = Number_Or_Zero(holder.Field(u"Show_On_List"_s));
        groups.Group_Dob_As_Pw[i] = Number_Or_Zero(holder.Field(u"Dob_as_pw"_s));
        holder.Rows().MoveNext();
    }
    holder.ado_Close();
    groups.Group_Count = count;
}

bool Is_Group_Name(const Group_Lists& groups, const QString& name) {
    for (int i = 1; i <= groups.Group_Count; ++i)
        if (groups.Group_Names[i] == name) return true;
    return false;
}

QStringList Columns_Of_Names() {
    return {u"StudentCode"_s, u"Surname"_s, u"Forename"_s};
}

void Take_Names(foundation::Row_Fields& field, int p, Record_Data data) {
    data.pupils.Student_Code[p] = field.Text(u"StudentCode"_s);
    data.records.Pupil_Surname[p] = field.Text(u"Surname"_s);
    data.records.Pupil_Forename[p] = field.Text(u"Forename"_s);
}

QString Pupil_Entry(int p, const Record_Data& data) {
    return data.records.Pupil_Surname[p] % u' ' % data.records.Pupil_Forename[p] % " ("_L1 %
           data.pupils.Student_Code[p] % u')';
}

qint16 Number_Or_Zero(const basics::Value& value) {
    return value.Is_Empty() ? qint16(0) : value.As_Integer();
}

QString Day_First(const basics::Value& date) {
    return date.Is_Date() ? basics::Day_Text(date.As_Date().date()) : date.Text_Or_Empty();
}

QString Row_Of_Pupil(const QString& code) {
    return u"SELECT * FROM Mevo_Pupils WHERE StudentCode = '"_s + code + u'\'';
}

std::unique_ptr<database::Connection> Own_Connection(const foundation::Installation& installation,
                                                     database::Kept_Engine& kept) {
    auto connection = std::make_unique<database::Connection>();
    connection->Keep_In(kept);
    connection->ConnectionString = installation.Connection_String;
    connection->Open();
    return connection;
}

} // namespace pupils
