#include "tools/setup/class_archives.h"

#include <algorithm>

#include "tools/check/checked_settings.h"
#include "tools/common/text_encoding.h"
#include "tools/setup/installed_list.h"

namespace tarn::tools {

std::string ArchivePrefixOf(std::wstring_view fastStart) {
    // Further jars follow.
    const std::wstring_view path = fastStart.substr(0, fastStart.find(L';'));
    const bool isAbsolute =
        path.starts_with(L'%') || path.starts_with(L"\\\\") || path.substr(0, 3).ends_with(L":\\");
    const bool isLiteral = std::all_of(path.begin(), path.end(), [](wchar_t character) {
        return character >= L' ' &&
               std::wstring_view(L"*?\"<>|/").find(character) == std::wstring_view::npos;
    });
    const std::size_t folder = path.rfind(L'\\');
    if (!isAbsolute || !isLiteral || folder == std::wstring_view::npos) return {};
    return Utf8Of(path);
}

std::string ArchivePrefixOf(const Product& product, const PackageContent& content) {
    const PackageFile* const file = content.Find(SettingsFileOf(product, content));
    const PackageFile* const executable = content.Find(product.executable);
    const CheckedSettings settings = file != nullptr
                                         ? CheckedSettings::Load(file->source, true)
                                         : CheckedSettings::BuiltInto(executable->source);
    return ArchivePrefixOf(settings.Get(L"Application", L"Fast Start").text);
}

}  // namespace tarn::tools
