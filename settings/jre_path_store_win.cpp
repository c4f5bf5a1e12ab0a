#include "settings/jre_path_store.h"

#include <optional>

#include "base/handles.h"
#include "base/paths.h"
#include "settings/ini_file.h"
#include "settings/keys.h"
#include "settings/settings_paths.h"

namespace tarn {
namespace {

std::optional<std::wstring> SettingsFileOf(const std::wstring& programPath,
                                           const Settings& settings) {
    if (settings.serviceMode) return SettingsPathOf(programPath);
    return PerUserSettingsPath(settings, programPath, true);
}

bool FitsAnsi(const std::wstring& text) {
    BOOL lost = FALSE;
    WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text.c_str(), -1, nullptr, 0, nullptr, &lost);
    return lost == FALSE;
}

// Windows writes a new settings file in the system's 8-bit code page, and a folder's name need not
// fit into that. It keeps to UTF-16 in a file that begins with the byte-order mark.
void BeginWideFile(const std::wstring& path) {
    const UniqueFile file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return;
    constexpr BYTE kByteOrderMark[] = {0xFF, 0xFE};
    DWORD written = 0;
    WriteFile(file.get(), kByteOrderMark, sizeof(kByteOrderMark), &written, nullptr);
}

void WriteJrePath(const std::wstring& programPath, const Settings& settings,
                  const std::wstring& folder) {
    const std::optional<std::wstring> path = SettingsFileOf(programPath, settings);
    if (!path) return;
    if (!FitsAnsi(folder) && !FileExists(*path)) BeginWideFile(*path);
    IniFile(*path).SetValue(keys::kJavaRuntimeEnvironment, keys::kJrePath, folder);
}

}  // namespace

void RememberRuntime(const Settings& settings, const std::wstring& folder) {
    if (const std::optional<std::wstring> program = ModulePath())
        WriteJrePath(*program, settings, folder);
    if (!settings.pairProduct.empty()) WriteJrePath(settings.pairProduct, settings, folder);
}

}  // namespace tarn
