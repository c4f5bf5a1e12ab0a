#pragma once

#include <string>
#include <vector>

#include "settings/settings.h"
#include "tools/explain/launch_report.h"

namespace tarn::tools {

/// What single instance would come to for a launch with these arguments: looks for the block of a
/// running instance and reads it; makes nothing and asks nobody.
InstanceReport ReportInstance(const std::wstring& programPath, const Settings& settings,
                              const std::vector<std::wstring>& arguments);

/// What a second instance would do: the outcome of the whole launch.
OutcomeReport OutcomeOfSecond(const InstanceReport& instance);

}  // namespace tarn::tools
