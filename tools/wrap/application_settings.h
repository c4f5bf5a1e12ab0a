#pragma once

#include <string>
#include <vector>

#include "tools/settings/settings_writer.h"
#include "tools/wrap/java_start.h"
#include "tools/wrap/wrap.h"

namespace tarn::tools {

/// The application's folder for each user's own files, as a setting contains it.
std::string LocalFolderOf(const WrapRequest& request);

/// The settings of a wrapped application. `classPath` lists the entries with "/"; `splash` is the
/// picture's file name beside the executable, or empty; `fastStart` is the value of "Fast Start".
SettingsWriter ApplicationSettings(const WrapRequest& request, const JavaStart& start,
                                   const std::vector<std::string>& classPath,
                                   const std::string& splash, const std::string& fastStart);

}  // namespace tarn::tools
