#pragma once

#include <vector>

#include "tools/setup/association.h"
#include "tools/setup/msi_codes.h"
#include "tools/setup/package_content.h"
#include "tools/setup/product.h"

namespace tarn::tools {

/// Everything that an MSI is made of.
struct MsiPlan {
    Product product;
    PackageContent content;
    std::vector<RegistryValue> values;
    MsiCodes codes;
    bool perMachine = false;
    bool desktopShortcut = false;
};

}  // namespace tarn::tools
