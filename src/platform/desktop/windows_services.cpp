#include "platform/desktop/windows_services.h"

#ifdef _WIN32
#include <windows.h>

#include <ole2.h>
#include <shlobj.h>
#else
#include "platform/basics/native_path.h"

#include <QFileInfo>
#include <QStandardPaths>
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

// The suite's modules are programs of 32 bits, and so is the player that they play with: the system keeps
// what such programs install apart from what others see.
class Windows_Registry final : public Registry {
public:
    int Create_Key(const QString& key, int access, quintptr& handle) override {
        HKEY opened = nullptr;
        const LSTATUS result =
            RegCreateKeyExA(HKEY_LOCAL_MACHINE, key.toLocal8Bit().constData(), 0, nullptr, 0,
                            static_cast<REGSAM>(access) | KEY_WOW64_32KEY, nullptr, &opened, nullptr);
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

// The header of a placeable metafile, which the system's own format doesn't have: its frame and its unit.
struct Placeable_Frame {
    static constexpr int Size = 22;
    int width; // hundredths of a millimetre
    int height;

    explicit Placeable_Frame(const QByteArray& wmf) {
        const auto word = [&wmf](int at) {
            return static_cast<short>(static_cast<unsigned char>(wmf[at]) |
                                      static_cast<unsigned char>(wmf[at + 1]) << 8);
        };
        constexpr int hundredths_an_inch = 2540;
        const int units_an_inch = word(14);
        width = MulDiv(word(10) - word(6), hundredths_an_inch, units_an_inch);
        height = MulDiv(word(12) - word(8), hundredths_an_inch, units_an_inch);
    }
};

void Keep_Windows_While_They_Work() {
    DisableProcessWindowsGhosting();
}

void Add_Metafile_To_Clipboard(const QByteArray& wmf) {
    if (wmf.size() <= Placeable_Frame::Size) return;
    const Placeable_Frame frame(wmf);
    METAFILEPICT picture{};
    picture.mm = MM_ANISOTROPIC;
    picture.xExt = frame.width;
    picture.yExt = frame.height;
    HENHMETAFILE metafile = SetWinMetaFileBits(
        static_cast<UINT>(wmf.size() - Placeable_Frame::Size),
        reinterpret_cast<const BYTE*>(wmf.constData() + Placeable_Frame::Size), nullptr, &picture);
    if (!metafile) return;
    OleFlushClipboard(); // what the toolkit only promised lies there now, and can be added to
    const bool opened = OpenClipboard(nullptr);
    // From here on it is the clipboard's. The older picture format the system makes of it by itself.
    const bool added = opened && SetClipboardData(CF_ENHMETAFILE, metafile);
    if (opened) CloseClipboard();
    if (!added) DeleteEnhMetaFile(metafile);
}

#else

QString System_Short_Path(const QString& path) {
    const QString native = basics::Native_Path(path);
    return QFileInfo::exists(native) ? native : QString();
}

int System_Folder(int number, QString& path) {
    if (number == Own_Documents)
        path = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    else if (number == Common_AppData)
        path = u"/var/lib"_s; // where data of the whole machine lie that programs change
    else
        return 1;
    return 0;
}

std::unique_ptr<Registry> Make_System_Registry() {
    return std::make_unique<No_Registry>();
}

void Add_Metafile_To_Clipboard(const QByteArray&) {
}

void Keep_Windows_While_They_Work() {
}

#endif

} // namespace desktop
