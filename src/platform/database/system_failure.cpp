#include "platform/database/system_failure.h"

#include "platform/basics/run_time_error.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <cerrno>
#endif

namespace database {

namespace errors = basics::errors;

#ifdef _WIN32

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

} // namespace database
