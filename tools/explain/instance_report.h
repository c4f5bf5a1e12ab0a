#pragma once

#include <string>
#include <vector>

#include "settings/settings.h"
#include "tools/explain/launch_report.h"

namespace tarn::tools {

/// What "Single Instance" would do for a launch with these arguments. Reads the shared block of a
/// running instance; creates nothing and sends no message.
InstanceReport ReportInstance(const std::wstring& programPath, const Settings& settings,
                              const std::vector<std::wstring>& arguments);

/// The outcome of a launch that is a second instance.
OutcomeReport OutcomeOfSecond(const InstanceReport& instance);

}  // namespace tarn::tools
