#pragma once

#include <filesystem>

namespace tarn::tools {

/// The folder beside the executable where the launcher expects a shipped runtime.
inline constexpr char kShippedRuntime[] = "jre64";

/// Throws Failure unless the folder contains a Java runtime for 64-bit Windows.
void CheckRuntime(const std::filesystem::path& runtime);

}  // namespace tarn::tools
