#pragma once

#include <string>

#include "base/windows.h"
#include "settings/settings.h"

namespace tarn {

/// Whether "JRE Path" comes from the user's own settings file, `perUser` then: it exists, and the
/// application is no service. Product code and name and the service mode are read already.
bool UsesPerUserFile(const Settings& settings, const std::wstring& programPath,
                     std::wstring& perUser);

/// Reads the settings into `settings`. Returns false when the settings path cannot be derived or no
/// main class is named; the user has then been told, in a box owned by `errorOwner`, except when
/// the executable's path holds no '.'.
bool ReadSettings(HWND errorOwner, Settings& settings);

}  // namespace tarn
