#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/explain/launch_report.h"

namespace tarn::tools {

/// Whether and how a launch with these arguments would show a splash. Loads the runtime's splash
/// library when it is preferred, as a launch does, but calls none of its functions. Nothing when
/// the path of the settings file cannot be derived.
std::optional<SplashReport> ReportSplash(const std::vector<std::wstring>& arguments,
                                         const std::wstring& jvmLibraryPath);

}  // namespace tarn::tools
