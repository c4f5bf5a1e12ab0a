#pragma once

#include "base/windows.h"

namespace tarn {

/// Loads a Windows library on first use, from the system folder only: a file of the same name
/// beside the launcher or in the current directory is never loaded (`LoadLibraryExW`). Returns null
/// with the last error set on failure. The library stays loaded; callers do not unload it.
HMODULE LoadSystemLibrary(const wchar_t* name);

/// Suppresses the message boxes that Windows shows when the calling thread loads a corrupt library
/// (`SetThreadErrorMode` with `SEM_FAILCRITICALERRORS`). The destructor restores the thread's mode,
/// so that neither the application nor its child processes inherit it, and keeps the last error.
class HardErrorSuppression {
  public:
    HardErrorSuppression();
    ~HardErrorSuppression();
    HardErrorSuppression(const HardErrorSuppression&) = delete;
    HardErrorSuppression& operator=(const HardErrorSuppression&) = delete;

  private:
    const DWORD previousMode_;
};

/// Returns an exported function as a pointer of type `Function` (`GetProcAddress`); null when
/// `library` is null or does not export it.
template <typename Function>
Function FindFunction(HMODULE library, const char* name) {
    if (library == nullptr) return nullptr;
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

}  // namespace tarn
