#pragma once

#include <string>

namespace import_hook {

/// Adds a line to the file that HOOK_LOG names. Lines of several threads do not mix, and what was
/// logged before the process ended is there, however it ended.
void OpenHookLog();
void LogLine(const std::string& line);

}  // namespace import_hook
