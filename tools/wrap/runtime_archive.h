#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tarn::tools {

/// Makes the archive of a runtime's own classes (class-data sharing), `bin/server/classes.jsa`, by
/// running the runtime's java.exe, unless it exists: on Windows, or with Wine where the user has a
/// prefix. `runtime` is a copy that belongs to the result. Adds a warning, with the command to run
/// on Windows, when there is no archive afterwards; an incomplete file is removed.
void MakeRuntimeArchive(const std::filesystem::path& runtime, std::vector<std::string>& warnings);

}  // namespace tarn::tools
