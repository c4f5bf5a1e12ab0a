#pragma once

#include <string>
#include <string_view>

#include "jvm/jvm_options.h"
#include "settings/settings.h"

namespace tarn {

/// The value of the native library path, environment variables not yet expanded. The launcher's
/// folder follows the setting directly: a setting that is to be a folder of its own ends in ";".
std::wstring LibraryPathValue(std::wstring_view setting, std::wstring_view launcherFolder,
                              std::wstring_view jvmLibraryPath);

/// The process's new "Path", environment variables not yet expanded: the setting's folders, the
/// present ones, the runtime's `bin` folder.
std::wstring ProcessPathValue(std::wstring_view setting, std::wstring_view jvmLibraryPath);

/// Publishes the chosen runtime, adds the native library path to `options` when the settings have
/// one, and sets the process's "Path" so that the runtime finds its libraries.
void PrepareNativePaths(const Settings& settings, const std::wstring& jvmLibraryPath,
                        JvmOptions& options);

}  // namespace tarn
