#pragma once

#include <QString>
#include <QtGlobal>

// The places of a new pupil's fields, in the order in which an import file has them. A seventh may follow,
// which nothing reads.
namespace pupils::place {

inline constexpr qsizetype Surname = 0;
inline constexpr qsizetype Forename = 1;
inline constexpr qsizetype Sex = 2;
inline constexpr qsizetype Date_Of_Birth = 3;
inline constexpr qsizetype Group = 4;
inline constexpr qsizetype Password = 5;
inline constexpr qsizetype Count = 6;

} // namespace pupils::place

namespace pupils {

// The first " - " becomes "-"; a second one stays.
QString Normalise_Hyphen(const QString& surname);

} // namespace pupils
