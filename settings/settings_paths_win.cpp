#include "base/paths.h"
#include "base/windows.h"
#include "settings/settings.h"
#include "settings/settings_paths.h"

namespace tarn {

std::optional<std::wstring> MainSettingsPath() {
    const std::optional<std::wstring> program = ModulePath();
    if (!program) return std::nullopt;
    return SettingsPathOf(*program);
}

std::wstring PerUserSettingsPath(const Settings& settings, const std::wstring& programPath,
                                 bool createFolders) {
    // The limit on purpose: a longer folder could not contain a file that Windows opens.
    wchar_t appData[MAX_PATH];
    const DWORD length = GetEnvironmentVariableW(L"APPDATA", appData, MAX_PATH);
    const bool known = length != 0 && length < MAX_PATH;
    const PerUserPath path = PerUserPathOf(std::wstring_view(appData, known ? length : 0),
                                           settings.productName, settings.productCode, programPath);
    if (createFolders) {
        CreateDirectoryW(path.ProductFolder().c_str(), nullptr);
        CreateDirectoryW(path.CodeFolder().c_str(), nullptr);
    }
    return path.file;
}

}  // namespace tarn
