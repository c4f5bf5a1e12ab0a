#pragma once

#include "base/windows.h"

namespace tarn {

/// The shell's library, loaded on first need: it drags in much that a launch which finds its
/// runtime does without. It stays loaded, for its own threads may still run in it when a call has
/// come back. Null when it cannot be loaded.
HMODULE ShellLibrary();

}  // namespace tarn
