#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jvm/jvm_options.h"
#include "settings/settings.h"
#include "tools/explain/launch_report.h"

namespace tarn::tools {

/// Whether the class path among these options has an empty element, which Java takes for the
/// current directory. Of several definitions, the last one counts.
bool HasEmptyClassPathElement(const std::vector<std::string>& options);

/// The value of an environment variable of this process, in UTF-8 (`GetEnvironmentVariableW`);
/// empty when it is not set.
std::string EnvironmentVariable(const wchar_t* name);

/// The Java side of a launch with these options. `defaultStackSize` is the stack size in bytes that
/// the runtime gives when the options have none.
JvmReport ReportJvm(const std::wstring& programPath, const Settings& settings,
                    const JvmOptions& options, std::uint64_t defaultStackSize);

}  // namespace tarn::tools
