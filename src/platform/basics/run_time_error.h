#pragma once

#include <QString>
#include <exception>
#include <utility>

namespace basics {

// A failure as the pages know it: a number, who raised it, and a text for the user. Nothing below the
// pages catches one unless its own rules say so; at the slot an unhandled one ends the process.
class Run_Time_Error : public std::exception {
public:
    Run_Time_Error(int number, QString source, QString description)
        : Number(number),
          Source(std::move(source)),
          Description(std::move(description)),
          utf8(Description.toUtf8()) {}

    const char* what() const noexcept override { return utf8.constData(); }

    int Number;
    QString Source;
    QString Description;
    QString About; // whose data it met, for the user; nobody decides by it

private:
    QByteArray utf8;
};

// Every number that an error of the program bears.
namespace errors {
// The run-time's own, by their customary numbers.
inline constexpr int Overflow = 6;
inline constexpr int Out_Of_Memory = 7;
inline constexpr int Subscript_Out_Of_Range = 9;
inline constexpr int Division_By_Zero = 11;
inline constexpr int Type_Mismatch = 13;
inline constexpr int Out_Of_String_Space = 14;
inline constexpr int Library_Not_Found = 48;
inline constexpr int Bad_File_Name = 52;
inline constexpr int File_Not_Found = 53;
inline constexpr int Device_Error = 57;
inline constexpr int Disk_Full = 61;
inline constexpr int Device_Unavailable = 68;
inline constexpr int Permission_Denied = 70;
inline constexpr int File_Access_Error = 75;
inline constexpr int Path_Not_Found = 76;
inline constexpr int Object_Not_Set = 91;
inline constexpr int Invalid_Use_Of_Null = 94;
inline constexpr int Application_Refused = 285; // another application won't do what it is asked
inline constexpr int Application_Timed_Out = 286;
inline constexpr int Invalid_Property_Value = 380;
inline constexpr int Printer_Error = 482;
inline constexpr int First_Own_Error = -2147220456; // plus a result of the system that has no number here

// Those of the data layer's objects are ADO's; the others are the results (HRESULTs) that its Jet provider
// gives for the same mishap.
inline constexpr int No_Current_Record = 3021;
inline constexpr int Not_Updatable = 3251;
inline constexpr int No_Such_Field = 3265;
inline constexpr int Object_Closed = 3704;
inline constexpr int Object_Open = 3705;
inline constexpr int Connection_Invalid = 3709;
inline constexpr int Engine_Failure = -2147467259; // can't be opened, not a database, in use, damaged
inline constexpr int Refused = -2147217911;        // read-only file, or an act that a statement may not do
inline constexpr int Unknown_Name = -2147217904;   // a column that no table has: a parameter without value
inline constexpr int Syntax = -2147217900;         // a statement that isn't one
inline constexpr int Value_Too_Long = -2147217887;
inline constexpr int Constraint = -2147217873;
inline constexpr int Took_Too_Long = -2147217871;
inline constexpr int Unknown_Table = -2147217865;
inline constexpr int Row_Has_Gone = -2147217864;
} // namespace errors

// The run-time error of that number with its customary description; Raise throws it.
Run_Time_Error Customary_Error(int number);

[[noreturn]] void Raise(int number);

} // namespace basics
