#pragma once

#include <string>

namespace tarn {

/// Starts the paired 32-bit launcher with this process's own command line, directory and
/// environment (`CreateProcessW`). With `waitForIt`, waits for the process and returns its exit
/// code; returns 0 without `waitForIt` and when the process cannot be started.
int StartPairedLauncher(const std::wstring& program, bool waitForIt);

}  // namespace tarn
