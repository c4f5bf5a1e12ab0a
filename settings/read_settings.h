#pragma once

#include "base/windows.h"
#include "settings/settings.h"

namespace tarn {

/// Reads the settings into `settings`. Returns false when the settings path cannot be derived or no
/// main class is named; the user has then been told, in a box owned by `errorOwner`, except when
/// the executable's path holds no '.'.
bool ReadSettings(HWND errorOwner, Settings& settings);

}  // namespace tarn
