#include "platform/desktop/windows_services.h"

#include "platform/desktop/ports.h"

#ifdef _WIN32
#include <shlobj.h>
#include <windows.h>
#else
#include "platform/basics/native_path.h"

#include <QFileInfo>
#endif

using namespace Qt::StringLiterals;

namespace desktop {

#ifdef _WIN32

constexpr int Short_Path_Room = 255;

QString System_Short_Path(const QString& path) {
    wchar_t buffer[Short_Path_Room];
    const DWORD length =
        GetShortPathNameW(reinterpret_cast<const wchar_t*>(path.utf16()), buffer, Short_Path_Room);
    return length < Short_Path_Room ? QString::fromWCharArray(buffer, static_cast<int>(length)) : QString();
}

int System_Folder(int number, QString& path) {
    wchar_t buffer[MAX_PATH] = {};
    const HRESULT result = SHGetFolderPathW(nullptr, number, nullptr, 0, buffer);
    if (result == S_OK) path = QString::fromWCharArray(buffer);
    return static_cast<int>(result);
}

#else

QString System_Short_Path(const QString& path) {
    const QString native = basics::Native_Path(path);
    return QFileInfo::exists(native) ? native : QString();
}

int System_Folder(int number, QString& path) {
    if (number != Common_AppData) return 1;
    path = u"/var/lib"_s; // where data of the whole machine lie that programs change
    return 0;
}

#endif

} // namespace desktop
