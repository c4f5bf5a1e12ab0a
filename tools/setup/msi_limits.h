#pragma once

#include <vector>

#include "tools/setup/association.h"
#include "tools/setup/package_content.h"
#include "tools/setup/product.h"

namespace tarn::tools {

/// Throws Failure for what does not fit into an MSI, or that `wixl` would fail at: the number and
/// size of the files, the version, names that are too long or not in Windows-1252.
void CheckMsi(const Product& product, const PackageContent& content,
              const std::vector<RegistryValue>& values);

}  // namespace tarn::tools
