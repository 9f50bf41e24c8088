#include "platform/basics/system_failure.h"

#include <system_error>

#ifdef _WIN32
#include <windows.h>
#else
#include <cerrno>
#endif

using namespace Qt::StringLiterals;

namespace basics {

#ifdef _WIN32

static int Code_Of_Last_Failure() {
    return static_cast<int>(GetLastError());
}

int Number_Of_Last_Failure() {
    switch (GetLastError()) {
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return errors::Disk_Full;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_WRITE_PROTECT:
        return errors::Permission_Denied;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_FILE_NOT_FOUND:
        return errors::Path_Not_Found;
    default:
        return errors::Device_Error;
    }
}

#else

static int Code_Of_Last_Failure() {
    return errno;
}

int Number_Of_Last_Failure() {
    switch (errno) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return errors::Disk_Full;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ETXTBSY:
        return errors::Permission_Denied;
    case ENOENT:
    case ENOTDIR:
        return errors::Path_Not_Found;
    default:
        return errors::Device_Error;
    }
}

#endif

Run_Time_Error Last_Failure() {
    const int code = Code_Of_Last_Failure();
    const int number = Number_Of_Last_Failure();
    const Run_Time_Error customary = Customary_Error(number);
    if (number != errors::Device_Error) return customary;
    const QString reason = QString::fromStdString(std::system_category().message(code));
    return {number, customary.Source, customary.Description + u": "_s + reason};
}

} // namespace basics
