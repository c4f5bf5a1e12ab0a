#pragma once

#include <filesystem>

namespace tarn::tools {

/// The folder that this program's own executable lies in; empty when the system does not say.
std::filesystem::path ProgramFolder();

}  // namespace tarn::tools
