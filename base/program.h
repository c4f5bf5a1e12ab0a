#pragma once

#include <string>

#include "base/windows.h"

namespace tarn {

/// The executable whose launch this process is about, for its resources: in the launcher, this
/// process's own.
HMODULE ProgramModule();

/// Another executable, opened for its resources, that this process acts for.
struct OtherProgram {
    /// Full path, as `GetModuleFileNameW` would give it there.
    std::wstring path;
    HMODULE module = nullptr;
};

/// The one that was named to `OverrideProgram`, null when there is none.
const OtherProgram* ProgramActedFor();

/// From now on `ModulePath`, the message texts and the settings built into the executable are those
/// of `program`, which has to stay; null goes back to this process's own. For a program that tells
/// what a launch of another one would do, by the launcher's own decisions. The launcher never calls
/// this, which leaves nothing of it in there. On one thread only.
void OverrideProgram(const OtherProgram* program);

}  // namespace tarn
