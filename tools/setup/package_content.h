#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tarn::tools {

/// A file to install.
struct PackageFile {
    std::string path;              // below the installation folder: UTF-8 with "/"
    std::filesystem::path source;  // absolute
    std::uint64_t size = 0;        // bytes
    std::filesystem::file_time_type time;
};

/// What is installed, sorted by path.
struct PackageContent {
    std::vector<PackageFile> files;
    std::vector<std::string> folders;  // a folder precedes those in it
    std::uint64_t size = 0;            // bytes of all files

    /// The file with this path in any case, or null.
    const PackageFile* Find(const std::string& path) const;

    /// The length of the longest path in UTF-16 units.
    std::size_t LongestPath() const;
};

/// The most files that a setup program installs.
inline constexpr std::size_t kMostFiles = 60000;

/// The longest path of an installed file in UTF-16 units, with the folder (MAX_PATH without its
/// zero).
inline constexpr std::size_t kLongestInstalledPath = 259;

/// Lists a folder created by `tarn wrap`. Throws Failure, before anything is made, for names that
/// Windows does not accept or does not distinguish, and for paths that would be too long in the
/// folder `installFolderName` of a user's local programs.
PackageContent ListPackage(const std::filesystem::path& folder,
                           const std::string& installFolderName);

}  // namespace tarn::tools
