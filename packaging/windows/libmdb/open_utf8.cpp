#include <cstdio>
#include <windows.h>

// In place of fopen: names are UTF-8, whatever the system's code page is.
extern "C" FILE* Open_Utf8(const char* name, const char* mode) {
    wchar_t wide_name[32768]; // the system's longest path
    wchar_t wide_mode[8];
    if (MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, name, -1, wide_name, 32768) == 0) return nullptr;
    if (MultiByteToWideChar(CP_UTF8, 0, mode, -1, wide_mode, 8) == 0) return nullptr;
    return _wfopen(wide_name, wide_mode);
}
