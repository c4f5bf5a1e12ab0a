#pragma once

#include <string>

#include "runtime/find_runtime.h"
#include "settings/settings.h"
#include "tools/explain/launch_report.h"

namespace tarn::tools {

/// Searches for a runtime as a launch does, stores it in `choice`, and reports the search and its
/// result.
RuntimeReport ReportRuntime(const Settings& settings, RuntimeChoice& choice);

}  // namespace tarn::tools
