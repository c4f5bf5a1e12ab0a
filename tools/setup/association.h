#pragma once

#include <string>
#include <vector>

namespace tarn::tools {

struct Product;

/// A file extension that the application opens.
struct Association {
    std::string extension;    // lower case, with the dot
    std::string description;  // of the documents
    std::string icon;  // path below the installation folder with "/"; empty: the executable's
};

/// A URL scheme that the application opens.
struct Protocol {
    std::string scheme;  // lower case, without the colon
    std::string description;
};

/// Parses a value of --associate, `.ext=Description[,icons/document.ico]`. Throws Failure.
Association ParseAssociation(const std::string& option);

/// Parses a value of --protocol, `scheme=Description`. Throws Failure, also for schemes of the
/// system such as "http" and "file".
Protocol ParseProtocol(const std::string& option);

/// Stands for the installation folder, without a backslash at its end, in the data of a
/// `RegistryValue`.
inline constexpr char kInstallFolderMark = '\x01';

/// A value (REG_SZ) below HKEY_CURRENT_USER, or HKEY_LOCAL_MACHINE for an installation per machine.
/// Setup removes it only while it has this data.
struct RegistryValue {
    std::string key;   // below the root, with backslashes
    std::string name;  // empty for the default value
    std::string data;  // may contain `kInstallFolderMark`

    /// Written only where HKEY_CLASSES_ROOT has no such value yet: a default that belongs to
    /// another application stays. `classesKey` is the key below HKEY_CLASSES_ROOT to look at.
    bool onlyIfFree = false;
    std::string classesKey;
};

/// What to register, in the order of writing: "open with" entries for each extension, and the
/// default only where there is none.
std::vector<RegistryValue> AssociationValues(const Product& product,
                                             const std::vector<Association>& associations,
                                             const std::vector<Protocol>& protocols);

/// The keys of the values and the keys above them that setup may have created, deepest first: each
/// is removed if it is empty. Keys that every Windows has are not among them.
std::vector<std::string> RemovableKeys(const std::vector<RegistryValue>& values);

/// The programmatic identifier (ProgID) of an extension or a scheme: "Vendor.Name.ext" or
/// "Vendor.Name.url.scheme".
std::string ProgIdOf(const Product& product, const std::string& extension);

}  // namespace tarn::tools
