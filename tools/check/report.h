#pragma once

#include <string>
#include <vector>

#include "tools/check/finding.h"
#include "tools/common/console.h"

namespace tarn::tools {

/// Prints "FILE:LINE: severity: message" for each finding, what to do below it, and a summary.
void PrintReport(const Console& console, const std::string& file,
                 const std::vector<Finding>& findings);

/// The same for programs (docs/user/check.md tells the schema), ended by a line end.
std::string JsonReport(const std::string& file, const std::vector<Finding>& findings);

}  // namespace tarn::tools
