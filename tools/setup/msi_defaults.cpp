#include "tools/setup/msi_defaults.h"

#include <algorithm>

namespace tarn::tools {
namespace {

constexpr char kClasses[] = "Software\\Classes\\";

// What an earlier version of the product has left in the looked-up value: its data, or the end of
// the executable's path when the data depends on the installation folder.
void SetCondition(MsiDefault& found, const Product& product) {
    std::string comparison = " = ";
    for (const RegistryValue& value : found.values) {
        if (!value.name.empty() || value.key != kClasses + found.classesKey) continue;
        found.own = value.data;
        if (value.data.find(kInstallFolderMark) != std::string::npos) {
            found.own = '\\' + product.executable;
            comparison = " ~>< ";
        }
    }
    found.condition =
        "NOT " + found.property + " OR " + found.property + comparison + found.ownProperty;
}

}  // namespace

std::vector<MsiDefault> MsiDefaultsOf(const Product& product,
                                      const std::vector<RegistryValue>& values) {
    std::vector<MsiDefault> defaults;
    for (const RegistryValue& value : values) {
        if (!value.onlyIfFree) continue;
        auto found = std::find_if(defaults.begin(), defaults.end(), [&](const MsiDefault& other) {
            return other.classesKey == value.classesKey;
        });
        if (found == defaults.end()) {
            const std::string number = std::to_string(defaults.size() + 1);
            MsiDefault added;
            added.classesKey = value.classesKey;
            added.component = "default" + number;
            added.property = "FOUNDDEFAULT" + number;
            added.ownProperty = "OWNDEFAULT" + number;
            found = defaults.insert(defaults.end(), std::move(added));
        }
        found->values.push_back(value);
    }
    for (MsiDefault& found : defaults) SetCondition(found, product);
    return defaults;
}

}  // namespace tarn::tools
