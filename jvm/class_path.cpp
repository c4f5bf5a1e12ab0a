#include "jvm/class_path.h"

#include "base/paths.h"
#include "base/text.h"

namespace tarn {

std::vector<std::wstring> ClassPathEntries(std::wstring_view text) {
    std::vector<std::wstring> entries = Split(text, L';');
    std::erase_if(entries, [](const std::wstring& entry) { return entry.empty(); });
    return entries;
}

bool IsLiteralEntry(std::wstring_view entry) {
    return entry.find(L'*') == std::wstring_view::npos && IsAbsolutePath(entry);
}

std::wstring ClassPathPattern(std::wstring_view entry, std::wstring_view launcherFolder) {
    std::wstring pattern;
    if (!IsAbsolutePath(entry)) pattern = launcherFolder;
    pattern += entry;
    return pattern;
}

}  // namespace tarn
