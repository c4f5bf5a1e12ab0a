#pragma once

#include <string>

#include "tools/explain/launch_report.h"

namespace tarn::tools {

/// Incremented when a field changes its meaning or is removed; not for new fields.
inline constexpr int kReportSchema = 1;

/// The report as JSON (docs/user/explain.md), with a final line end.
std::string ReportJson(const LaunchReport& report);

}  // namespace tarn::tools
