#pragma once

#include <CLI/CLI.hpp>

#include "tools/common/console.h"

namespace tarn::tools {

/// Adds `tarn setup`.
void AddSetupCommand(CLI::App& app, const Console& console, int& exitCode);

}  // namespace tarn::tools
