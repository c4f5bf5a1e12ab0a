#pragma once

#include <CLI/CLI.hpp>

#include "tools/common/console.h"

namespace tarn::tools {

/// `tarn explain NAME.exe [--json] [-- ARGS...]`: what a launch would do here and now. On Windows
/// only.
void AddExplainCommand(CLI::App& app, const Console& console, int& exitCode);

}  // namespace tarn::tools
