#include <fcntl.h>
#include <io.h>

#include <cerrno>
#include <cstdlib>
#include <ctime>

#include "base/paths.h"
#include "base/windows.h"
#include "tools/common/system.h"

namespace tarn::tools {
namespace {

int ErrnoOf(DWORD error) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            return ENOENT;
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS:
            return EEXIST;
        case ERROR_INVALID_NAME:
            return EINVAL;
        case ERROR_DISK_FULL:
            return ENOSPC;
        default:
            return EACCES;
    }
}

UniqueStream StreamOf(HANDLE handle, int flags, const wchar_t* mode) {
    const int descriptor = _open_osfhandle(reinterpret_cast<std::intptr_t>(handle), flags);
    if (descriptor < 0) {
        CloseHandle(handle);
        return nullptr;
    }
    return UniqueStream(_wfdopen(descriptor, mode));
}

bool PrepareStream(std::FILE* stream, DWORD standardHandle) {
    // Lines end with LF on every platform.
    _setmode(_fileno(stream), _O_BINARY);
    const HANDLE handle = GetStdHandle(standardHandle);
    DWORD mode = 0;
    if (!GetConsoleMode(handle, &mode)) return false;
    return SetConsoleMode(handle, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != FALSE;
}

}  // namespace

UniqueStream OpenRegularFile(const std::filesystem::path& file) {
    const HANDLE handle =
        CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        errno = ErrnoOf(GetLastError());
        return nullptr;
    }
    // Consoles and pipes have names, too.
    if (GetFileType(handle) != FILE_TYPE_DISK) {
        CloseHandle(handle);
        errno = EINVAL;
        return nullptr;
    }
    return StreamOf(handle, _O_RDONLY | _O_BINARY, L"rb");
}

UniqueStream CreateNewFile(const std::filesystem::path& file) {
    const HANDLE handle = CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                      CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        errno = ErrnoOf(GetLastError());
        return nullptr;
    }
    return StreamOf(handle, _O_WRONLY | _O_BINARY, L"wb");
}

bool IsLink(const std::filesystem::path& path) {
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return false;
    FindClose(search);
    // Files in cloud storage are reparse points, too.
    return (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           (found.dwReserved0 == IO_REPARSE_TAG_SYMLINK ||
            found.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT);
}

std::filesystem::path ProgramFolder() {
    return std::filesystem::path(ModuleFolder().value_or(std::wstring()));
}

void UseUtc() {
    _wputenv_s(L"TZ", L"UTC");
    _tzset();
}

Terminals PrepareTerminals() {
    const Terminals terminals = {PrepareStream(stdout, STD_OUTPUT_HANDLE),
                                 PrepareStream(stderr, STD_ERROR_HANDLE)};
    if (terminals.output || terminals.errors) SetConsoleOutputCP(CP_UTF8);
    return terminals;
}

}  // namespace tarn::tools
