#pragma once

#include <string>

#include "tools/common/console.h"
#include "tools/explain/launch_report.h"

namespace tarn::tools {

/// The report for people, with styles where the console has them.
std::string ReportText(const LaunchReport& report, const Console& console);

}  // namespace tarn::tools
