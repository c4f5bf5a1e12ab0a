#pragma once

#include <string>

namespace tarn {

/// Starts the paired 32-bit launcher with this process's own command line, directory and
/// environment (`CreateProcessW`). With `waitForIt` waits until it has ended and returns its exit
/// code; 0 without, and when it could not be started.
int StartPairedLauncher(const std::wstring& program, bool waitForIt);

}  // namespace tarn
