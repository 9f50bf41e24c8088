#pragma once

#include "foundation/access_holder.h"
#include "foundation/installation.h"
#include "platform/basics/bounded.h"

#include <QString>

namespace pupils {

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

// Fills the lists from the groups table.
void Load_Groups(foundation::Access_Holder& holder, const foundation::Installation& installation,
                 Group_Lists& groups);

// Letter by letter: a name that differs only in case is another group's.
bool Is_Group_Name(const Group_Lists& groups, const QString& name);

} // namespace pupils
