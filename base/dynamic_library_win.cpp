#include "base/dynamic_library.h"

#include <string>

namespace tarn {

HMODULE LoadSystemLibrary(const wchar_t* name) {
    // Without a folder, so that the manifest still selects the version of side-by-side libraries
    // such as the common controls.
    const HMODULE library = LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (library != nullptr || GetLastError() != ERROR_INVALID_PARAMETER) return library;

    // Windows 7 without the loader update rejects the flag; the full path is equally safe.
    wchar_t folder[MAX_PATH];  // the system folder's path is never longer
    const UINT length = GetSystemDirectoryW(folder, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return nullptr;
    std::wstring path(folder, length);
    path += L'\\';
    path += name;
    return LoadLibraryW(path.c_str());
}

HardErrorSuppression::HardErrorSuppression() : previousMode_(GetThreadErrorMode()) {
    SetThreadErrorMode(previousMode_ | SEM_FAILCRITICALERRORS, nullptr);
}

HardErrorSuppression::~HardErrorSuppression() {
    // The caller reads the failed load's error after this.
    const DWORD error = GetLastError();
    SetThreadErrorMode(previousMode_, nullptr);
    SetLastError(error);
}

}  // namespace tarn
