#pragma once

#include "base/windows.h"

namespace tarn {

/// Loads a library of Windows itself on first need, from the system folder only: a file of that
/// name beside the launcher or in the current directory is never run. Null with the last error when
/// there is none. Whoever calls this keeps the library; it is not counted on to be unloaded.
HMODULE LoadSystemLibrary(const wchar_t* name);

/// While an object lives, a library that the calling thread cannot load causes no message box of
/// Windows' own (`SetThreadErrorMode` with `SEM_FAILCRITICALERRORS`). The destructor restores the
/// thread's mode, so neither the application nor its child processes inherit it, and keeps the
/// last error.
class HardErrorSuppression {
  public:
    HardErrorSuppression();
    ~HardErrorSuppression();
    HardErrorSuppression(const HardErrorSuppression&) = delete;
    HardErrorSuppression& operator=(const HardErrorSuppression&) = delete;

  private:
    const DWORD previousMode_;
};

/// A function that `library` exports, as a pointer of type `Function`; null when the library is
/// null or has no such function.
template <typename Function>
Function FindFunction(HMODULE library, const char* name) {
    if (library == nullptr) return nullptr;
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

}  // namespace tarn
