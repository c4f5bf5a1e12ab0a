#pragma once

#include <string>
#include <vector>

#include "settings/settings.h"
#include "tools/explain/launch_report.h"

namespace tarn::tools {

/// Every setting that a launch of the program at `programPath` reads, whether it is there or not,
/// in the order of the table. `settings` is what the launcher made of them, as far as it got.
std::vector<SettingReport> ReportSettings(const std::wstring& programPath,
                                          const Settings& settings);

}  // namespace tarn::tools
