#pragma once

#include <CLI/CLI.hpp>

#include "tools/common/console.h"

namespace tarn::tools {

/// Adds `tarn wrap`.
void AddWrapCommand(CLI::App& app, const Console& console, int& exitCode);

}  // namespace tarn::tools
