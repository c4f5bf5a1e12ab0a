#pragma once

#include <optional>
#include <string>

#include "settings/settings.h"

namespace tarn {

/// The settings file of this executable; nothing when its own path cannot be read or holds no '.'.
std::optional<std::wstring> MainSettingsPath();

/// The user's own settings file for the program at `programPath`. With `createFolders` the two
/// folders above it are made first; that they cannot be made is not an error here. `APPDATA` of
/// 260 or more characters counts as not set, and the path then begins with a backslash.
std::wstring PerUserSettingsPath(const Settings& settings, const std::wstring& programPath,
                                 bool createFolders);

}  // namespace tarn
