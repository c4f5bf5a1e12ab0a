#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// Splits the setting "Class Path" at each ";". Empty entries are dropped.
std::vector<std::wstring> ClassPathEntries(std::wstring_view text);

/// Whether an entry is copied to the class path without a search on the disk: it is an absolute
/// path and contains no "*".
bool IsLiteralEntry(std::wstring_view entry);

/// The `FindFirstFileW` pattern of an entry that is not literal. A relative entry is joined to
/// `launcherFolder`, which ends in a backslash.
std::wstring ClassPathPattern(std::wstring_view entry, std::wstring_view launcherFolder);

/// The class path of the setting "Class Path", each entry followed by ";". Environment variables
/// are expanded first. Entries that are not literal are replaced by their matches
/// (`FindFirstFileW`, `FindNextFileW`), unfiltered and in the order of the file system; without a
/// match an entry is dropped.
std::wstring ExpandClassPath(std::wstring_view text, std::wstring_view launcherFolder);

}  // namespace tarn
