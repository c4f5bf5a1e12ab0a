#pragma once

#include <CLI/CLI.hpp>

#include "tools/common/console.h"

namespace tarn::tools {

/// Adds "tarn stamp" to the command line.
void AddStampCommand(CLI::App& app, const Console& console, int& exitCode);

}  // namespace tarn::tools
