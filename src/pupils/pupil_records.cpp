#include "pupils/pupil_records.h"

using namespace Qt::StringLiterals;

namespace pupils {

void Take_Names(foundation::Access_Holder& holder, int p, Record_Data data) {
    data.pupils.Student_Code[p] = holder.Field(u"StudentCode"_s).Text_Or_Empty();
    data.records.Pupil_Surname[p] = holder.Field(u"Surname"_s).Text_Or_Empty();
    data.records.Pupil_Forename[p] = holder.Field(u"Forename"_s).Text_Or_Empty();
}

QString Pupil_Entry(int p, const Record_Data& data) {
    return data.records.Pupil_Surname[p] + u' ' + data.records.Pupil_Forename[p] + u" ("_s +
           data.pupils.Student_Code[p] + u')';
}

qint16 Number_Or_Zero(const basics::Value& value) {
    return value.Is_Empty() ? qint16(0) : value.As_Integer();
}

QString Row_Of_Pupil(const QString& code) {
    return u"SELECT * FROM Mevo_Pupils WHERE StudentCode = '"_s + code + u'\'';
}

std::unique_ptr<database::Connection> Own_Connection(const foundation::Installation& installation) {
    auto connection = std::make_unique<database::Connection>();
    connection->ConnectionString = installation.Connection_String;
    connection->Open();
    return connection;
}

} // namespace pupils
