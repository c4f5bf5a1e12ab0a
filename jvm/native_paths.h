#pragma once

#include <string>
#include <string_view>

#include "settings/settings.h"

namespace tarn {

/// The value of `java.library.path`, with environment variables not yet expanded. The launcher's
/// folder follows `setting` without a separator.
std::wstring LibraryPathValue(std::wstring_view setting, std::wstring_view launcherFolder,
                              std::wstring_view jvmLibraryPath);

/// The new value of the process's `Path`, with environment variables not yet expanded: the folders
/// of `setting`, the present value, the runtime's `bin` folder.
std::wstring ProcessPathValue(std::wstring_view setting, std::wstring_view jvmLibraryPath);

/// Publishes the chosen runtime in the environment (`PublishJvmLocation`) and sets the process's
/// `Path` (`SetEnvironmentVariableW`), so that the runtime finds its native libraries. Returns the
/// JVM option with the native library path, which contains the previous `Path`, in the thread's
/// ANSI code page; empty when "Library Path" is not set.
std::string PrepareNativePaths(const Settings& settings, const std::wstring& jvmLibraryPath);

}  // namespace tarn
