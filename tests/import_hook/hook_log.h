#pragma once

#include <string>

namespace import_hook {

/// Appends a line to the file that HOOK_LOG names. Lines of several threads do not mix, and a line
/// is in the file however the process ends.
void OpenHookLog();
void LogLine(const std::string& line);

}  // namespace import_hook
