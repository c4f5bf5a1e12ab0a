#pragma once

#include <optional>
#include <string>

namespace tarn {

/// The full path of the launcher's own executable (`GetModuleFileNameW`), or of the one that this
/// process acts for (`base/program.h`). A path of 260 or more characters counts as unreadable:
/// settings, single instance and class path are all derived from it, and a cut path would name
/// somebody else's files. The last error tells why.
std::optional<std::wstring> ModulePath();

/// The folder of the executable, up to and including its last backslash.
std::optional<std::wstring> ModuleFolder();

}  // namespace tarn
