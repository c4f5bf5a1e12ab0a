#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tarn {

struct Settings;

/// Returns the settings file of a program: its path up to and including the last '.', followed by
/// "ini". The last '.' of the whole path counts, including folder names
/// (docs/developer/compatibility.md). Returns nothing for a path without a '.'.
std::optional<std::wstring> SettingsPathOf(std::wstring_view programPath);

/// A per-user settings path and the folders that it needs.
struct PerUserPath {
    std::wstring file;
    std::size_t productFolderLength =
        0;                             ///< of the product folder's path, which `file` begins with
    std::size_t codeFolderLength = 0;  ///< of the code folder's path, which `file` begins with

    std::wstring ProductFolder() const { return file.substr(0, productFolderLength); }
    std::wstring CodeFolder() const { return file.substr(0, codeFolderLength); }
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
