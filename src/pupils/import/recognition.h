#pragma once

#include "pupils/import/source_dates.h"
#include "pupils/import/source_table.h"

#include <array>

namespace pupils {

// What the columns of a school's list hold: found by their headings, and by what stands in them where those
// don't tell.

inline constexpr int No_Column = -1;

// The column of each of the six fields, in their places (place::Surname and so on), from 0. One column for
// both names holds the whole name, the surname before its comma.
using Column_Mapping = std::array<int, 6>;
bool Has_Whole_Names(const Column_Mapping& mapping);

struct Recognition {
    int heading = No_Column; // the place of the heading line among the rows; none if the list begins at once
    int first = 0;           // the place of the first pupil's row: what is above is a note
    QStringList headings;    // a text for each column, at least its letter
    Column_Mapping mapping{No_Column, No_Column, No_Column, No_Column, No_Column, No_Column};
};

Recognition Recognise(const Source_Table& table, const QDate& today);

// The places of the rows that hold pupils: neither notes above the table, nor headings that a new page
// repeats.
QList<int> Pupil_Rows(const Source_Table& table, const Recognition& recognition);

// "M", "F", or nothing for a word that is neither.
QString Gender_Letter(const QString& word);

// A name of its headings by which a list is known again.
QString Headings_Name(const Recognition& recognition);
QString Text_Of(const Column_Mapping& mapping);
std::optional<Column_Mapping> Mapping_Of(const QString& text, qsizetype columns);

} // namespace pupils
