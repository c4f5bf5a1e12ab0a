#pragma once

#include <CLI/CLI.hpp>

#include "tools/common/console.h"

namespace tarn::tools {

/// Adds "tarn wrap" to the command line.
void AddWrapCommand(CLI::App& app, const Console& console, int& exitCode);

}  // namespace tarn::tools
