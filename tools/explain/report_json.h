#pragma once

#include <string>

#include "tools/explain/launch_report.h"

namespace tarn::tools {

/// Goes up whenever a field changes its meaning or goes away; new fields may come without that.
inline constexpr int kReportSchema = 1;

/// The report for programs, as docs/user/explain.md tells. Ends in a line end.
std::string ReportJson(const LaunchReport& report);

}  // namespace tarn::tools
