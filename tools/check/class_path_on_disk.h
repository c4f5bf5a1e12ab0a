#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tools/check/checked_settings.h"

namespace tarn::tools {

/// One entry of "Class Path" and the files that it resolves to.
struct DiskEntry {
    std::wstring written;
    /// False for entries that only the user's machine can resolve; see `IsResolvableHere`.
    bool isKnown = false;
    /// The files and folders on the class path, without "." and "..".
    std::vector<std::filesystem::path> found;
};

/// The entries in order, each with what the launcher would find.
std::vector<DiskEntry> ClassPathOnDisk(const CheckedSettings& settings);

/// Whether an entry can be resolved on this machine: an entry with an environment variable cannot,
/// and on systems other than Windows neither can an absolute one.
bool IsResolvableHere(const std::wstring& entry);

/// The files and folders of one entry: on Windows by the launcher's own search.
std::vector<std::filesystem::path> FindEntry(const CheckedSettings& settings,
                                             const std::wstring& entry);

/// The files at a path relative to `folder`, found as Windows does: case-insensitively, with "\"
/// and
/// "/" as separators and the wildcards "*" and "?" in the last name. Sorted. Throws Failure when a
/// folder on the way exists but cannot be read.
std::vector<std::filesystem::path> FindAsWindows(const std::filesystem::path& folder,
                                                 std::wstring_view relative);

}  // namespace tarn::tools
