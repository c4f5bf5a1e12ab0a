#include "settings/settings_paths.h"

#include "base/paths.h"
#include "base/text.h"

namespace tarn {

std::optional<std::wstring> SettingsPathOf(std::wstring_view programPath) {
    const std::size_t dot = programPath.rfind(L'.');
    if (dot == std::wstring_view::npos) return std::nullopt;
    return Concat({programPath.substr(0, dot + 1), L"ini"});
}

PerUserPath PerUserPathOf(std::wstring_view appData, std::wstring_view productName,
                          std::wstring_view productCode, std::wstring_view programPath) {
    constexpr std::wstring_view kForbidden = L"\\?\"|><:/*";
    const std::wstring_view fileName = programPath.substr(FolderOf(programPath).size());
    PerUserPath path;
    path.file = Concat({appData, L"\\"});
    for (const wchar_t c : productName) {
        if (kForbidden.find(c) == std::wstring_view::npos) path.file += c;
    }
    path.productFolderLength = path.file.size();
    path.file = Concat({path.file, L"\\", productCode});
    path.codeFolderLength = path.file.size();
    path.file = Concat({path.file, L"\\", CutAtLast(fileName, L'.'), L".ini"});
    return path;
}

}  // namespace tarn
