#pragma once

#include <string>

#include "runtime/find_runtime.h"
#include "settings/settings.h"
#include "tools/explain/launch_report.h"

namespace tarn::tools {

/// Searches a runtime as a launch does, into `choice`, and tells how that went and what was found.
RuntimeReport ReportRuntime(const Settings& settings, RuntimeChoice& choice);

}  // namespace tarn::tools
