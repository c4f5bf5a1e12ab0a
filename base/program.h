#pragma once

#include <string>

#include "base/windows.h"

namespace tarn {

/// An executable loaded for its resources, whose launch this process predicts.
struct OtherProgram {
    std::wstring path;         ///< full path, as `GetModuleFileNameW` returns it in that process
    HMODULE module = nullptr;  ///< owned by the caller of `OverrideProgram`
};

/// Returns the module whose resources hold the messages and the embedded settings: this process's
/// executable, unless it is overridden.
HMODULE ProgramModule();

/// Returns the program passed to `OverrideProgram`, or null.
const OtherProgram* OverridingProgram();

/// Makes `ModulePath` and `ProgramModule` return those of `program`, which must stay alive, until
/// null is passed. The companion program uses this to run the launcher's own decisions for another
/// executable; the launcher never calls it, so the linker drops the override. Not thread-safe.
void OverrideProgram(const OtherProgram* program);

}  // namespace tarn
