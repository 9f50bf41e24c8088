#pragma once

#include "foundation/access_holder.h"
#include "foundation/installation.h"
#include "foundation/row_fields.h"
#include "platform/basics/bounded.h"
#include "platform/basics/value.h"
#include "platform/database/connection.h"
#include "scoring/pupil_lists.h"

#include <QStringList>
#include <memory>

namespace pupils {

using scoring::Of_Each_Pupil;

inline constexpr int Most_Groups = 100;

template<class T>
using Of_Each_Group = basics::Bounded<T, Most_Groups>;

// The groups by their place, from 1, in the table's own order: the first is the default group, whatever it is
// called. Place 0 is for a list whose first entry stands for all groups.
struct Group_Lists {
    Of_Each_Group<QString> Group_Names;
    Of_Each_Group<qint16> Group_Show_On_List; // 1: its members appear on the Login List
    Of_Each_Group<qint16> Group_Dob_As_Pw;    // 1: its members' date of birth is their password
    int Group_Count = 0;
};

// What these pages list of a pupil beside the lists that every page shares, by the same place p, from 1. They
// hold until a page loads its list again, and each page fills what it needs.
struct Pupil_Records {
    Of_Each_Pupil<QString> Pupil_Surname;
    Of_Each_Pupil<QString> Pupil_Forename;
    Of_Each_Pupil<QString> Pupil_Sex; // "M" or "F"
    Of_Each_Pupil<QString> Pupil_Group;
    Of_Each_Pupil<QString> Pupil_Password;
    Of_Each_Pupil<qint16> Pupil_Show_Name; // 1: appears on the Login List
    Of_Each_Pupil<qint16> Pupil_Dob_As_Pw; // 1: the date of birth is the password
    Group_Lists groups;
    QString To_Be_Shown;       // code of the pupil all of whose data are to be seen
    QString Group_For_Cards;   // whose logins are printed first
    QStringList To_Be_Deleted; // codes that the Delete page selects when it next opens
};

// What the pages work on; each lives longer than the page.
struct Record_Data {
    foundation::Installation& installation;
    scoring::Pupil_Lists& pupils;
    Pupil_Records& records;
};

void Load_Groups(foundation::Access_Holder& holder, const foundation::Installation& installation,
                 Group_Lists& groups);

// Letter by letter: a name that differs only in case is another group's.
bool Is_Group_Name(const Group_Lists& groups, const QString& name);

QStringList Columns_Of_Names(); // those that Take_Names reads

// Code, surname and forename of the row at hand.
void Take_Names(foundation::Row_Fields& field, int p, Record_Data data);

// The pupil's entry in a box to choose from: "Grey Anna (GREANN204XYZ)".
QString Pupil_Entry(int p, const Record_Data& data);

// A setting that was never written counts as not set: an import leaves out a new group's password setting.
qint16 Number_Or_Zero(const basics::Value& value);

// As dd/mm/yyyy, or as it stands there if it isn't a date.
QString Day_First(const basics::Value& date);

QString Row_Of_Pupil(const QString& code);

// A connection of the procedure's own, open, and released with it.
std::unique_ptr<database::Connection> Own_Connection(const foundation::Installation& installation,
                                                     database::Kept_Engine& kept);

} // namespace pupils
