#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/wrap/application_jars.h"

namespace tarn::tools {

/// The system in the classifier at the end of a jar's name: "Linux" for "x-1.0-linux.jar" and
/// "x-natives-linux-amd64.jar", "macOS" for "x-1.0-mac-aarch64.jar"; empty for other names.
std::string SystemOfClassifier(std::string_view fileName);

/// Adds a warning for each jar whose native libraries are all for other systems than 64-bit
/// Windows on x64, or whose name says that it is for one.
void WarnAboutOtherSystems(const ApplicationJars& jars, std::vector<std::string>& warnings);

}  // namespace tarn::tools
