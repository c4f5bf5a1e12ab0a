#pragma once

#include <string>
#include <vector>

#include "tools/setup/association.h"
#include "tools/setup/msi_codes.h"
#include "tools/setup/package_content.h"
#include "tools/setup/product.h"

namespace tarn::tools {

/// The variable of wixl's preprocessor that must be defined as "$".
inline constexpr char kDollarVariable[] = "dollar";

/// The product's icon in the folder in which wixl runs.
inline constexpr char kMsiIcon[] = "application.ico";

/// The path below that folder, which wixl requires, of the file with a number from 1 on in the
/// order of `PackageContent::files`.
std::string MsiSourceName(std::size_t number);

/// Everything that an MSI is made of.
struct MsiPlan {
    Product product;
    PackageContent content;
    std::vector<RegistryValue> values;
    MsiCodes codes;
    bool perMachine = false;
    bool desktopShortcut = false;
};

/// Throws Failure for what does not fit into an MSI, or that `wixl` would fail at: the number and
/// size of the files, the version, names that are too long or not in Windows-1252.
void CheckMsi(const Product& product, const PackageContent& content,
              const std::vector<RegistryValue>& values);

/// The source for `wixl` (XML, UTF-8).
std::string WixSource(const MsiPlan& plan);

/// Changes to the tables of the MSI that `wixl` has no source for, as statements for `msibuild`:
/// the conditions of defaults that are written only where there are none, and the properties that
/// may be set on the command line of an installation for all users.
std::vector<std::string> TableChanges(const MsiPlan& plan);

/// The table `_ForceCodepage` for `msibuild`: Windows-1252, which `wixl` writes without saying so.
std::string CodePageTable();

/// The table `_SummaryInformation` for `msibuild`, with what `wixl` takes from a random generator
/// and the clock: the package code, and the time of the newest file.
std::string SummaryTable(const MsiPlan& plan);

}  // namespace tarn::tools
