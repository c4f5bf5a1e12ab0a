#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace tarn::tools {

/// Java makes the archive in some seconds; this is enough for a busy or emulated machine.
inline constexpr std::chrono::minutes kRuntimeArchiveLimit(5);

/// Makes the archive of a runtime's own classes (class-data sharing), `bin/server/classes.jsa`, by
/// running the runtime's java.exe, unless it exists: on Windows, or with Wine where the user has a
/// prefix. `runtime` is a copy that belongs to the result, of `original`, which messages name. Adds
/// a warning, with the command to run on Windows, when there is no archive afterwards. Throws
/// Failure when java.exe has not ended after the time limit, which ends it. An incomplete file is
/// removed in both cases.
void MakeRuntimeArchive(const std::filesystem::path& runtime, const std::filesystem::path& original,
                        std::vector<std::string>& warnings,
                        std::chrono::milliseconds timeLimit = kRuntimeArchiveLimit);

}  // namespace tarn::tools
