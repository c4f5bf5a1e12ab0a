#pragma once

#include <cstddef>
#include <string>

#include "tools/setup/msi_plan.h"

namespace tarn::tools {

/// The product's icon in the folder in which wixl runs.
inline constexpr char kMsiIcon[] = "application.ico";

/// The path below that folder, which wixl requires, of the file with a number from 1 on in the
/// order of `PackageContent::files`.
std::string MsiSourceName(std::size_t number);

/// The source for `wixl` (XML, UTF-8).
std::string WixSource(const MsiPlan& plan);

}  // namespace tarn::tools
