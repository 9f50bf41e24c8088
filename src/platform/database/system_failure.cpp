#include "platform/database/system_failure.h"

#include "platform/basics/run_time_error.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <cerrno>
#endif

namespace database {

#ifdef _WIN32

int Number_Of_Last_Failure() {
    switch (GetLastError()) {
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return basics::errors::Disk_Full;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_WRITE_PROTECT:
        return basics::errors::Permission_Denied;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_FILE_NOT_FOUND:
        return basics::errors::Path_Not_Found;
    default:
        return basics::errors::Device_Error;
    }
}

#else

int Number_Of_Last_Failure() {
    switch (errno) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return basics::errors::Disk_Full;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ETXTBSY:
        return basics::errors::Permission_Denied;
    case ENOENT:
    case ENOTDIR:
        return basics::errors::Path_Not_Found;
    default:
        return basics::errors::Device_Error;
    }
}

#endif

} // namespace database
