#pragma once

#include <string>
#include <vector>

#include "tools/settings/settings_writer.h"
#include "tools/wrap/java_start.h"
#include "tools/wrap/wrap.h"

namespace tarn::tools {

/// The settings of a wrapped application. `classPath` lists the entries with "/"; `splash` is the
/// picture's file name beside the executable, or empty.
SettingsWriter ApplicationSettings(const WrapRequest& request, const JavaStart& start,
                                   const std::vector<std::string>& classPath,
                                   const std::string& splash);

}  // namespace tarn::tools
