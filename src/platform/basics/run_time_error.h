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

private:
    QByteArray utf8;
};

// The run-time's own errors, by their customary numbers.
namespace errors {
inline constexpr int Overflow = 6;
inline constexpr int Subscript_Out_Of_Range = 9;
inline constexpr int Division_By_Zero = 11;
inline constexpr int Type_Mismatch = 13;
inline constexpr int File_Not_Found = 53;
inline constexpr int Device_Error = 57;
inline constexpr int Disk_Full = 61;
inline constexpr int Permission_Denied = 70;
inline constexpr int Path_Not_Found = 76;
inline constexpr int Object_Not_Set = 91;
inline constexpr int Invalid_Use_Of_Null = 94;
} // namespace errors

// The run-time error of that number with its customary description.
Run_Time_Error Customary_Error(int number);

// Throws it.
[[noreturn]] void Raise(int number);

} // namespace basics
