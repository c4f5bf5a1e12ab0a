#pragma once

#include <filesystem>
#include <string>

#include "tools/common/console.h"
#include "tools/wrap/output_folder.h"

namespace tarn::tools {

/// The folder beside the executable in which the launcher looks for a shipped runtime.
inline constexpr char kShippedRuntime[] = "jre64";

/// Throws Failure unless the folder holds a Java runtime for 64-bit Windows.
void CheckRuntime(const std::filesystem::path& runtime);

/// Copies a runtime to its place below the application's folder, with a line of progress.
void CopyRuntime(const std::filesystem::path& runtime, const OutputFolder& output,
                 const Console& console);

}  // namespace tarn::tools
