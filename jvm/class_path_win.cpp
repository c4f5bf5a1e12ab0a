#include "jvm/class_path.h"

#include "base/environment.h"
#include "base/handles.h"
#include "base/paths.h"
#include "base/text.h"

namespace tarn {
namespace {

void AppendMatches(const std::wstring& pattern, std::wstring& classPath) {
    WIN32_FIND_DATAW found;
    const UniqueFindHandle search(FindFirstFileW(pattern.c_str(), &found));
    if (!search) return;
    const std::wstring_view folder = FolderOf(pattern);
    do {
        classPath += folder;
        classPath += found.cFileName;
        classPath += L';';
    } while (FindNextFileW(search.get(), &found));
}

}  // namespace

std::wstring ExpandClassPath(std::wstring_view text, std::wstring_view launcherFolder) {
    std::wstring classPath;
    for (const std::wstring& setting : ClassPathEntries(text)) {
        const std::wstring entry = ExpandEnvironment(setting);
        if (IsLiteralEntry(entry)) {
            classPath += entry;
            classPath += L';';  // also after the last entry: docs/developer/compatibility.md
        } else {
            AppendMatches(ClassPathPattern(entry, launcherFolder), classPath);
        }
    }
    return classPath;
}

}  // namespace tarn
