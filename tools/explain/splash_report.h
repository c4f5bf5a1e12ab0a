#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/explain/launch_report.h"

namespace tarn::tools {

/// Whether a launch with these arguments would show a splash, and how. Where the runtime's own
/// library is wanted it is loaded, as the launch would, but asked for nothing. Nothing when the
/// settings file's path cannot be derived.
std::optional<SplashReport> ReportSplash(const std::vector<std::wstring>& arguments,
                                         const std::wstring& jvmLibraryPath);

}  // namespace tarn::tools
