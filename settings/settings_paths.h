#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarn {

/// The settings file of a program: its path cut after the last '.' and followed by "ini". The last
/// '.' of the whole path counts, folders included; without any there is no settings file.
std::optional<std::wstring> SettingsPathOf(std::wstring_view programPath);

/// The parts that a user's own settings file is named by.
struct PerUserPath {
    std::wstring productFolder;  ///< below the application-data folder
    std::wstring codeFolder;     ///< below that
    std::wstring file;           ///< the file itself
};

/// `appData`, the product name without characters that a folder name cannot hold, the product
/// code, and the program's base name with ".ini".
PerUserPath PerUserPathOf(std::wstring_view appData, std::wstring_view productName,
                          std::wstring_view productCode, std::wstring_view programPath);

/// The settings file of this executable, nothing when its path cannot be read or holds no '.'.
std::optional<std::wstring> MainSettingsPath();

/// The user's own settings file for the program at `programPath`. With `createFolders` the two
/// folders above it are made first; that they cannot be made is not an error here. `APPDATA` of
/// 260 or more characters counts as not set, and the path then begins with a backslash.
std::wstring PerUserSettingsPath(const std::wstring& productName, const std::wstring& productCode,
                                 const std::wstring& programPath, bool createFolders);

}  // namespace tarn
