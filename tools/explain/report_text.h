#pragma once

#include <string>

#include "tools/common/console.h"
#include "tools/explain/launch_report.h"

namespace tarn::tools {

/// The report as text, with styles on a terminal.
std::string ReportText(const LaunchReport& report, const Console& console);

}  // namespace tarn::tools
