#pragma once

#include <string>
#include <vector>

#include "jvm/jvm_options.h"
#include "settings/settings.h"
#include "tools/explain/launch_report.h"

namespace tarn::tools {

/// Whether the class path among these options has an empty element, which Java takes for the
/// current directory. Of several definitions, the last one counts.
bool HasEmptyClassPathElement(const std::vector<std::string>& options);

/// What Java would get. `options` and `arguments` are what the launcher built; `fromOption` tells
/// that the stack size came from "-Xss" and not from the runtime.
JvmReport ReportJvm(const std::wstring& programPath, const Settings& settings,
                    const JvmOptions& options, const std::vector<std::wstring>& arguments,
                    bool fromOption);

}  // namespace tarn::tools
