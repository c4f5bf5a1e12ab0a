#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarn {

/// The settings file of a program: its path cut after the last '.' and followed by "ini". The last
/// '.' of the whole path counts, folders included; without any there is no settings file.
std::optional<std::wstring> SettingsPathOf(std::wstring_view programPath);

/// What a user's own settings file is named by.
struct PerUserPath {
    std::wstring productFolder;  ///< below the application-data folder
    std::wstring codeFolder;     ///< below that
    std::wstring file;           ///< the file itself
};

/// `appData`, the product name without the characters that a folder name cannot hold, the product
/// code, and the program's base name with ".ini", joined by backslashes.
PerUserPath PerUserPathOf(std::wstring_view appData, std::wstring_view productName,
                          std::wstring_view productCode, std::wstring_view programPath);

}  // namespace tarn
