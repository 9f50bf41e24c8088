#include "platform/basics/run_time_error.h"

using namespace Qt::StringLiterals;

namespace basics {

static QString Customary_Description(int number) {
    static const std::pair<int, QString> descriptions[] = {
        {errors::Overflow, u"Overflow"_s},
        {errors::Out_Of_Memory, u"Out of memory"_s},
        {errors::Subscript_Out_Of_Range, u"Subscript out of range"_s},
        {errors::Division_By_Zero, u"Division by zero"_s},
        {errors::Type_Mismatch, u"Type mismatch"_s},
        {errors::Out_Of_String_Space, u"Out of string space"_s},
        {errors::Bad_File_Name, u"Bad file name or number"_s},
        {errors::File_Not_Found, u"File not found"_s},
        {errors::Device_Error, u"Device I/O error"_s},
        {errors::Disk_Full, u"Disk full"_s},
        {errors::Permission_Denied, u"Permission denied"_s},
        {errors::File_Access_Error, u"Path/File access error"_s},
        {errors::Path_Not_Found, u"Path not found"_s},
        {errors::Object_Not_Set, u"Object variable or With block variable not set"_s},
        {errors::Invalid_Use_Of_Null, u"Invalid use of Null"_s},
        {errors::Invalid_Property_Value, u"Invalid property value"_s},
    };
    for (const auto& [described, description] : descriptions)
        if (described == number) return description;
    return u"Application-defined or object-defined error"_s;
}

Run_Time_Error Customary_Error(int number) {
    return {number, u"Mevo"_s, Customary_Description(number)};
}

void Raise(int number) {
    throw Customary_Error(number);
}

} // namespace basics
