#pragma once

#include <string>
#include <vector>

#include "jvm/jvm_options.h"
#include "settings/settings.h"
#include "tools/explain/launch_report.h"

namespace tarn::tools {

/// What Java would get. `options` and `arguments` are what the launcher built; `fromOption` tells
/// that the stack size came from "-Xss" and not from the runtime.
JvmReport ReportJvm(const std::wstring& programPath, const Settings& settings,
                    const JvmOptions& options, const std::vector<std::wstring>& arguments,
                    bool fromOption);

}  // namespace tarn::tools
