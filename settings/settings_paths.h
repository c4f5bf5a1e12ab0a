#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarn {

struct Settings;

/// Returns the settings file of a program: its path up to and including the last '.', followed by
/// "ini". The last '.' of the whole path counts, including folder names
/// (docs/developer/compatibility.md). Returns nothing for a path without a '.'.
std::optional<std::wstring> SettingsPathOf(std::wstring_view programPath);

/// The parts of a per-user settings path, each with the ones before it.
struct PerUserPath {
    std::wstring productFolder;  ///< below the application-data folder
    std::wstring codeFolder;     ///< below `productFolder`
    std::wstring file;           ///< in `codeFolder`
};

/// Returns the per-user settings path: `appData`, the product name without the characters that a
/// folder name cannot contain, the product code and the program's base name with ".ini", separated
/// by backslashes.
PerUserPath PerUserPathOf(std::wstring_view appData, std::wstring_view productName,
                          std::wstring_view productCode, std::wstring_view programPath);

/// Returns the settings file of the launcher's executable; nothing when the executable's path
/// cannot be read or contains no '.'.
std::optional<std::wstring> MainSettingsPath();

/// Returns the per-user settings file of the program at `programPath`. With `createFolders` the
/// product and code folders are created first (`CreateDirectoryW`); failures are ignored. An
/// `APPDATA` of 260 or more characters is treated as unset, and the path then begins with a
/// backslash.
std::wstring PerUserSettingsPath(const Settings& settings, const std::wstring& programPath,
                                 bool createFolders);

}  // namespace tarn
