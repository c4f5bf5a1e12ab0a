#pragma once

#include <string>
#include <vector>

#include "settings/settings.h"
#include "tools/explain/launch_report.h"

namespace tarn::tools {

/// Every setting that a launch of the program at `programPath` reads, set or not, in the order of
/// `KnownKeys`. `settings` is the launcher's interpretation, as far as it was read.
std::vector<SettingReport> ReportSettings(const std::wstring& programPath,
                                          const Settings& settings);

}  // namespace tarn::tools
