#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarn::tools {

/// A finished setup program or MSI as package managers describe it. All texts are UTF-8.
struct PublishedSetup {
    std::string packageId;  // "Vendor.Name"
    std::string name;
    std::string version;
    std::string displayVersion;  // in the uninstall entry; empty for `version`
    std::string vendor;
    std::string description;
    std::string copyright;   // may be empty
    std::string license;     // a name or an SPDX identifier; empty for "Proprietary"
    std::string homepage;    // empty for the site of `url`
    std::string url;         // where users download the file
    std::string sha256;      // of the file, hexadecimal
    std::string executable;  // relative to the installation folder
    std::string folder;      // the name of the installation folder
    bool isMsi = false;
    bool perMachine = false;
    std::string productCode;                  // key of the uninstall entry
    std::string upgradeCode;                  // empty unless `isMsi`
    std::vector<std::string> fileExtensions;  // without the dot
    std::vector<std::string> protocols;
};

/// A file to write beside the setup program.
struct ManifestFile {
    std::string name;
    std::string text;  // UTF-8
};

/// "Vendor.Name" from the two texts: letters and digits of any script, at most 32 each. Throws
/// Failure when one of them has none.
std::string PackageIdOf(std::string_view vendor, std::string_view name);

/// The three files of a winget manifest (version 1.6.0): version, installer and default locale.
/// Throws Failure for a value that the schema does not accept.
std::vector<ManifestFile> WingetManifest(const PublishedSetup& setup);

/// The manifest for scoop, which runs a setup program in its own folder and unpacks an MSI. Throws
/// Failure for a value that the schema does not accept, and for a setup for all users, which needs
/// an administrator.
ManifestFile ScoopManifest(const PublishedSetup& setup);

}  // namespace tarn::tools
