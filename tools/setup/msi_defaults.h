#pragma once

#include <string>
#include <vector>

#include "tools/setup/association.h"
#include "tools/setup/product.h"

namespace tarn::tools {

/// A component of an MSI that is installed only where no other application has the default: Windows
/// Installer looks the default up and evaluates a condition.
struct MsiDefault {
    std::string classesKey;   // below HKEY_CLASSES_ROOT; its default value is looked up
    std::string component;    // identifiers in the MSI
    std::string property;     // receives what is found
    std::string ownProperty;  // contains what the product itself writes there
    std::string own;
    std::string condition;
    std::vector<RegistryValue> values;
};

/// The values with `onlyIfFree`, grouped by the key that is looked up.
std::vector<MsiDefault> MsiDefaultsOf(const Product& product,
                                      const std::vector<RegistryValue>& values);

}  // namespace tarn::tools
