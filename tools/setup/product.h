#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "tools/common/whole_file.h"
#include "tools/setup/setup_request.h"

namespace tarn::tools {

/// The product that is installed. Texts are UTF-8.
struct Product {
    std::string name;
    std::string fileName;  // the name as a file name of Windows: installation folder and shortcut
    std::string version;
    std::array<std::uint16_t, 4> number = {};  // the version for comparisons
    std::string vendor;                        // may be empty
    std::string description;
    std::string copyright;
    std::string id;          // letters, digits, '.', '-' and '_'
    std::string executable;  // in the installation folder, with its extension
    /// Of the class archives that the launcher leaves (see `ArchivePrefixOf`); not set by
    /// `ReadProduct`.
    std::string archivePrefix;
    Bytes icon;  // an .ico file; empty if the executable has none
};

/// The product in a folder created by `tarn wrap`: the request's texts, completed from the version
/// information of the executable. Throws Failure when the folder contains no launcher, or several
/// and the request does not say which, and for texts that are too long.
Product ReadProduct(const SetupRequest& request);

/// The leading numbers of a version: 2.1.0.0 for "2.1-beta3", so that a release is no older than
/// its previews. Numbers above 65535 become 65535.
std::array<std::uint16_t, 4> ComparableVersion(std::string_view version);

/// "2.1.0.0".
std::string VersionText(const std::array<std::uint16_t, 4>& number);

/// The id of a product without --id: "Vendor.Name", followed by a hash of both texts if they
/// contain other characters than letters and digits.
std::string DerivedId(std::string_view vendor, std::string_view name);

/// A text as a file name: characters that Windows does not accept become '_'.
std::string FileNameOf(std::string_view text);

/// The command line that opens a document, with `kInstallFolderMark`.
std::string OpenCommandOf(const Product& product);

}  // namespace tarn::tools
