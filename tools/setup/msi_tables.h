#pragma once

#include <string>
#include <vector>

#include "tools/setup/msi_plan.h"

namespace tarn::tools {

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
