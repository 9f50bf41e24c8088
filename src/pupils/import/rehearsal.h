#pragma once

#include "pupils/import/recognition.h"
#include "pupils/import/registered.h"

#include <QDateTime>
#include <QMap>

namespace pupils {

// What would become of each row of a list if it were imported. The heavier kind counts where a row is of two.
enum class Row_Kind { New, Unlikely_Age, Other_Birthday, Already_There, Twice, Spoilt, Refused };
inline constexpr int Row_Kinds = 7;
QString Words_Of(Row_Kind kind);

struct Draft_Row {
    int line = 0;                   // in the source
    QStringList fields;             // six, in their places, as the source and the corrections have them
    bool date_is_corrected = false; // a corrected date is day first, as it is shown
};

struct Rehearsed_Row {
    int line = 0;
    QStringList fields; // as they would be written, the date as dd/mm/yyyy, as far as they can be read
    QDate birthday;
    int age_months = 0; // today; of a row with a birthday
    Row_Kind kind = Row_Kind::New;
    QStringList words; // why it is of that kind, and what else is to be said
    bool curable = false;
    bool goes = true; // is to be imported
};

QString Age_Words(int months); // "4 y 3 m"
bool Has_Norms(int months);    // whether the tests have norms of that age

struct Rehearsal_Setting {
    Date_Order order = Date_Order::Day_First;
    bool whole_names = false;
    QString class_for_all; // where the row has none
    QDateTime now;
};

// `goes` is by default what a teacher would want: nobody who is there already comes in a second time.
QList<Rehearsed_Row> Rehearse(const QList<Draft_Row>& drafts, const Rehearsal_Setting& setting,
                              const Registered& registered);

// What the row would be with every cure that there is; the fields are those of a draft.
QStringList Cured_Draft(const Draft_Row& draft, const Rehearsal_Setting& setting);

} // namespace pupils
