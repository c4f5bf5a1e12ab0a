#pragma once

#include <filesystem>
#include <string>

#include "tools/common/console.h"
#include "tools/wrap/output_folder.h"

namespace tarn::tools {

/// The folder beside the executable where the launcher expects a shipped runtime.
inline constexpr char kShippedRuntime[] = "jre64";

/// Throws Failure unless the folder contains a Java runtime for 64-bit Windows.
void CheckRuntime(const std::filesystem::path& runtime);

/// Copies a runtime into the application's folder and shows progress.
void CopyRuntime(const std::filesystem::path& runtime, OutputFolder& output,
                 const Console& console);

}  // namespace tarn::tools
