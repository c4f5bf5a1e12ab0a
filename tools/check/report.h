#pragma once

#include <string>
#include <vector>

#include "tools/check/finding.h"
#include "tools/common/console.h"

namespace tarn::tools {

/// Prints "FILE:LINE: severity: message" and the advice for each finding, and a summary.
void PrintReport(const Console& console, const std::string& file,
                 const std::vector<Finding>& findings);

/// The same as JSON (docs/user/check.md), with a final line end.
std::string JsonReport(const std::string& file, const std::vector<Finding>& findings);

}  // namespace tarn::tools
