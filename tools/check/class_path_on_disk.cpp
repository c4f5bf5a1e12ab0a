#include "tools/check/class_path_on_disk.h"

#include <algorithm>

#include "base/paths.h"
#include "base/text.h"
#include "jvm/class_path.h"
#include "settings/keys.h"
#include "tools/check/jvm_options_of.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

wchar_t Lower(wchar_t letter) {
    return letter >= L'A' && letter <= L'Z' ? static_cast<wchar_t>(letter - L'A' + L'a') : letter;
}

// Whether a name is what the pattern stands for, going back to the last "*" where that fails.
bool Matches(std::wstring_view name, std::wstring_view pattern) {
    std::size_t at = 0, in = 0, star = std::wstring_view::npos, afterStar = 0;
    while (at < name.size()) {
        if (in < pattern.size() && pattern[in] == L'*') {
            star = in++;
            afterStar = at;
        } else if (in < pattern.size() &&
                   (pattern[in] == L'?' || Lower(pattern[in]) == Lower(name[at]))) {
            ++in;
            ++at;
        } else if (star != std::wstring_view::npos) {
            in = star + 1;
            at = ++afterStar;
        } else {
            return false;
        }
    }
    while (in < pattern.size() && pattern[in] == L'*') ++in;
    return in == pattern.size();
}

std::vector<std::filesystem::path> MatchesIn(const std::filesystem::path& folder,
                                             std::wstring_view pattern) {
    // For Windows "*.*" is every name, one without a dot as well.
    if (pattern == L"*.*") pattern = L"*";
    std::vector<std::filesystem::path> found;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        const std::wstring name = WideOf(Utf8OfPath(entry.path().filename()));
        if (Matches(name, pattern)) found.push_back(entry.path());
    }
    std::sort(found.begin(), found.end());
    return found;
}

#ifdef _WIN32
// The launcher's own search.
std::vector<std::filesystem::path> FindEntry(const CheckedSettings& settings,
                                             const std::wstring& entry) {
    std::error_code error;
    const std::wstring folder =
        std::filesystem::absolute(settings.folder(), error).make_preferred().wstring();
    std::vector<std::filesystem::path> found;
    for (const std::wstring& piece :
         Split(ExpandClassPath(entry, EnsureTrailing(folder, L'\\')), L';')) {
        const std::filesystem::path path(piece);
        const std::wstring name = path.filename().wstring();
        if (!piece.empty() && name != L"." && name != L".." &&
            std::filesystem::exists(path, error)) {
            found.push_back(path);
        }
    }
    return found;
}
#else
std::vector<std::filesystem::path> FindEntry(const CheckedSettings& settings,
                                             const std::wstring& entry) {
    return FindAsWindows(settings.folder(), ClassPathPattern(entry, L""));
}
#endif

bool CanBeToldHere(const std::wstring& entry) {
#ifdef _WIN32
    return !HasVariable(entry);
#else
    return !HasVariable(entry) && !IsAbsolutePath(entry);
#endif
}

}  // namespace

std::vector<std::filesystem::path> FindAsWindows(const std::filesystem::path& folder,
                                                 std::wstring_view relative) {
    std::filesystem::path at = folder;
    for (;;) {
        const std::size_t end = relative.find_first_of(L"\\/");
        const std::wstring_view name = relative.substr(0, end);
        if (end == std::wstring_view::npos)
            return name.empty() ? std::vector{at} : MatchesIn(at, name);
        relative.remove_prefix(end + 1);
        if (name.empty() || name == L".") continue;
        if (name == L"..") {
            at /= "..";
            continue;
        }
        // Wildcards stand for other names in the last one only.
        if (name.find_first_of(L"*?") != std::wstring_view::npos) return {};
        const std::vector<std::filesystem::path> next = MatchesIn(at, name);
        if (next.empty()) return {};
        at = next.front();
    }
}

std::vector<DiskEntry> ClassPathOnDisk(const CheckedSettings& settings) {
    std::vector<DiskEntry> entries;
    const Setting classPath = settings.Get(keys::kClassPath, keys::kClassPath);
    for (std::wstring& written : ClassPathEntries(classPath.text)) {
        DiskEntry entry;
        entry.isKnown = settings.looksAtDisk() && CanBeToldHere(written);
        if (entry.isKnown) entry.found = FindEntry(settings, written);
        entry.written = std::move(written);
        entries.push_back(std::move(entry));
    }
    return entries;
}

}  // namespace tarn::tools
