#include "tools/check/class_path_on_disk.h"

#include <algorithm>

#include "base/paths.h"
#include "base/text.h"
#include "jvm/class_path.h"
#include "settings/keys.h"
#include "tools/check/jvm_options.h"
#include "tools/common/ascii.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

// Whether a name matches a pattern; on a mismatch the last "*" takes one more character.
bool Matches(std::wstring_view name, std::wstring_view pattern) {
    std::size_t at = 0, in = 0, star = std::wstring_view::npos, afterStar = 0;
    while (at < name.size()) {
        if (in < pattern.size() && pattern[in] == L'*') {
            star = in++;
            afterStar = at;
        } else if (in < pattern.size() &&
                   (pattern[in] == L'?' || ToLowerAscii(pattern[in]) == ToLowerAscii(name[at]))) {
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
    // On Windows "*.*" matches every name, even without a dot.
    if (pattern == L"*.*") pattern = L"*";
    std::vector<std::filesystem::path> found;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::wstring name = WideOf(Utf8OfPath(entry->path().filename()));
        if (Matches(name, pattern)) found.push_back(entry->path());
    }
    const bool isAbsent =
        error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
    if (error && !isAbsent) throw Failure(folder, "cannot be read (" + error.message() + ")");
    std::sort(found.begin(), found.end());
    return found;
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
        // Wildcards apply to the last name only.
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
        entry.isKnown = settings.checksFiles() && IsResolvableHere(written);
        if (entry.isKnown) entry.found = FindEntry(settings, written);
        entry.written = std::move(written);
        entries.push_back(std::move(entry));
    }
    return entries;
}

}  // namespace tarn::tools
