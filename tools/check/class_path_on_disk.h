#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tools/check/checked_settings.h"

namespace tarn::tools {

/// One entry of "Class Path" and what it comes to.
struct DiskEntry {
    std::wstring written;
    /// Whether that can be told here: an entry with a variable, and on Linux an absolute one, is
    /// known on the user's machine only.
    bool isKnown = false;
    /// The files and folders on the class path, "." and ".." left out.
    std::vector<std::filesystem::path> found;
};

/// The entries in their order, each with what the launcher would find.
std::vector<DiskEntry> ClassPathOnDisk(const CheckedSettings& settings);

/// What is at a path relative to the settings file's folder, as Windows finds it: letter case does
/// not count, "\" and "/" separate, and "*" and "?" in the last name stand for others. Sorted.
std::vector<std::filesystem::path> FindAsWindows(const std::filesystem::path& folder,
                                                 std::wstring_view relative);

}  // namespace tarn::tools
