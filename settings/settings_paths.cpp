#include "settings/settings_paths.h"

#include "base/paths.h"
#include "base/text.h"

namespace tarn {

std::optional<std::wstring> SettingsPathOf(std::wstring_view programPath) {
    const std::size_t dot = programPath.rfind(L'.');
    if (dot == std::wstring_view::npos) return std::nullopt;
    std::wstring path(programPath.substr(0, dot + 1));
    path += L"ini";
    return path;
}

PerUserPath PerUserPathOf(std::wstring_view appData, std::wstring_view productName,
                          std::wstring_view productCode, std::wstring_view programPath) {
    constexpr std::wstring_view kForbidden = L"\\?\"|><:/*";
    const std::wstring_view fileName = programPath.substr(FolderOf(programPath).size());
    PerUserPath path;
    std::wstring& file = path.file;
    file += appData;
    file += L'\\';
    for (const wchar_t c : productName) {
        if (kForbidden.find(c) == std::wstring_view::npos) file += c;
    }
    path.productFolderLength = file.size();
    file += L'\\';
    file += productCode;
    path.codeFolderLength = file.size();
    file += L'\\';
    file += CutAtLast(fileName, L'.');
    file += L".ini";
    return path;
}

}  // namespace tarn
