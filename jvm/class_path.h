#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// The entries of "Class Path": the pieces between semicolons that are not empty.
std::vector<std::wstring> ClassPathEntries(std::wstring_view text);

/// Whether an entry needs no look at the disk: it is absolute and holds no "*".
bool IsTakenAsItStands(std::wstring_view entry);

/// What to look for on the disk for an entry: a relative one is below the launcher's folder.
std::wstring ClassPathPattern(std::wstring_view entry, std::wstring_view launcherFolder);

/// The class path that "Class Path" asks for, each entry followed by ";". Environment variables in
/// the entries are expanded; wildcards and relative entries give what `FindFirstFileW` and
/// `FindNextFileW` find, in their order and unfiltered, so that an entry without a match is
/// dropped.
std::wstring ExpandClassPath(std::wstring_view text, std::wstring_view launcherFolder);

}  // namespace tarn
