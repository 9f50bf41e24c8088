#include "platform/basics/run_time_error.h"

using namespace Qt::StringLiterals;

namespace basics {

static QString Customary_Description(int number) {
    switch (number) {
    case errors::Overflow:
        return u"Overflow"_s;
    case errors::Subscript_Out_Of_Range:
        return u"Subscript out of range"_s;
    case errors::Division_By_Zero:
        return u"Division by zero"_s;
    case errors::Type_Mismatch:
        return u"Type mismatch"_s;
    case errors::File_Not_Found:
        return u"File not found"_s;
    case errors::Device_Error:
        return u"Device I/O error"_s;
    case errors::Disk_Full:
        return u"Disk full"_s;
    case errors::Permission_Denied:
        return u"Permission denied"_s;
    case errors::Path_Not_Found:
        return u"Path not found"_s;
    case errors::Object_Not_Set:
        return u"Object variable or With block variable not set"_s;
    case errors::Invalid_Use_Of_Null:
        return u"Invalid use of Null"_s;
    default:
        return u"Application-defined or object-defined error"_s;
    }
}

Run_Time_Error Customary_Error(int number) {
    return {number, u"Mevo"_s, Customary_Description(number)};
}

void Raise(int number) {
    throw Customary_Error(number);
}

} // namespace basics
