#pragma once

#include "foundation/access_holder.h"
#include "foundation/installation.h"
#include "platform/basics/bounded.h"
#include "platform/basics/kept_date.h"
#include "scoring/test_catalogue.h"

#include <QString>

namespace scoring {

inline constexpr int Most_Pupils = 2500;

template<class T>
using Of_Each_Pupil = basics::Bounded<T, Most_Pupils>;

// The pupils who have results, by their place p in the list, from 1; by test t first where a test has its
// own. They hold until the list is loaded again.
struct Pupil_Lists {
    Of_Each_Pupil<QString> Student_Code;
    Of_Each_Pupil<QString> Pupil_Name_List; // surname, blank, forename
    Of_Each_Pupil<QString> Pupil_DOB_List;  // dd/mm/yyyy
    Of_Each_Pupil<QString> Pupil_Class_List;
    Of_Each_Pupil<qint16> Pupil_Age_Now;  // completed months
    Of_Each_Pupil<qint16> Pupil_Test_Age; // see Age_When_First_Tested

    basics::Bounded<Of_Each_Pupil<qint16>, All_Tests> Test_Status; // [t][p]; 1 alone is completed
    basics::Bounded<Of_Each_Pupil<qint16>, All_Tests> Test_Age; // [t][p], completed months; selects the norms
    basics::Bounded<Of_Each_Pupil<basics::Kept_Date>, All_Tests> Test_Date; // [t][p], dd/mm/yyyy

    int Pupils_Listed = 0;
};

// Fills the lists with every pupil who has done any test, by surname and forename.
void Load_Pupil_Lists(foundation::Access_Holder& holder, const foundation::Installation& installation,
                      const desktop::Clock& clock, Pupil_Lists& lists);

// In spite of its name the age at the last test: the greatest of the nine. Every report prints it.
qint16 Age_When_First_Tested(const Pupil_Lists& lists, int p);

// The pupil's entry in a box to choose from: "Grey Anna (204)".
QString Pupil_List_Entry(const Pupil_Lists& lists, int p);

} // namespace scoring
