#pragma once

#include <CLI/CLI.hpp>

#include "tools/common/console.h"

namespace tarn::tools {

/// Adds `tarn stamp`.
void AddStampCommand(CLI::App& app, const Console& console, int& exitCode);

}  // namespace tarn::tools
