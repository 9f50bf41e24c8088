#include "platform/desktop/windows_services.h"

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

namespace {

class Windows_Registry final : public Registry {
public:
    int Create_Key(const QString& key, int access, quintptr& handle) override {
        HKEY opened = nullptr;
        const LSTATUS result = RegCreateKeyExA(HKEY_LOCAL_MACHINE, key.toLocal8Bit().constData(), 0, nullptr,
                                               0, static_cast<REGSAM>(access), nullptr, &opened, nullptr);
        handle = reinterpret_cast<quintptr>(opened);
        return static_cast<int>(result);
    }
    int Query_Value(quintptr handle, const QString& name, int& type, QByteArray& buffer) override {
        DWORD found = 0;
        auto size = static_cast<DWORD>(buffer.size());
        const LSTATUS result =
            RegQueryValueExA(reinterpret_cast<HKEY>(handle), name.toLocal8Bit().constData(), nullptr, &found,
                             reinterpret_cast<BYTE*>(buffer.data()), &size);
        type = static_cast<int>(found);
        return static_cast<int>(result);
    }
    void Close_Key(quintptr handle) override { RegCloseKey(reinterpret_cast<HKEY>(handle)); }
};

} // namespace

std::unique_ptr<Registry> Make_System_Registry() {
    return std::make_unique<Windows_Registry>();
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

std::unique_ptr<Registry> Make_System_Registry() {
    return std::make_unique<No_Registry>();
}

#endif

} // namespace desktop
