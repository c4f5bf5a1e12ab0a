#pragma once

#include <string>
#include <string_view>

namespace tarn::tools {

/// The name that Java derives from the file name of a jar without a declared name, when the jar is
/// on the module path: "commons.text" for "commons-text-1.10.0.jar".
std::string AutomaticModuleName(std::string_view fileName);

}  // namespace tarn::tools
