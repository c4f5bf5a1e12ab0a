#include "settings/settings_paths.h"

#include "base/paths.h"
#include "base/text.h"

namespace tarn {
namespace {

std::wstring WithoutForbiddenCharacters(std::wstring_view name) {
    constexpr std::wstring_view kForbidden = L"\\?\"|><:/*";
    std::wstring result;
    for (const wchar_t c : name) {
        if (kForbidden.find(c) == std::wstring_view::npos) result += c;
    }
    return result;
}

}  // namespace

std::optional<std::wstring> SettingsPathOf(std::wstring_view programPath) {
    const std::size_t dot = programPath.rfind(L'.');
    if (dot == std::wstring_view::npos) return std::nullopt;
    return Concat({programPath.substr(0, dot + 1), L"ini"});
}

PerUserPath PerUserPathOf(std::wstring_view appData, std::wstring_view productName,
                          std::wstring_view productCode, std::wstring_view programPath) {
    const std::wstring_view fileName = programPath.substr(FolderOf(programPath).size());
    PerUserPath path;
    path.productFolder = Concat({appData, L"\\", WithoutForbiddenCharacters(productName)});
    path.codeFolder = Concat({path.productFolder, L"\\", productCode});
    path.file = Concat({path.codeFolder, L"\\", CutAtLast(fileName, L'.'), L".ini"});
    return path;
}

}  // namespace tarn
