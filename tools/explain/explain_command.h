#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "tools/common/console.h"

namespace tarn::tools {

struct ExplainRequest {
    std::string program;
    /// The arguments after "--", as the C library splits them.
    std::vector<std::string> arguments;
    bool json = false;
};

/// Prints what a launch would do on this machine. Throws Failure for a file that is not an
/// executable, and on systems other than Windows.
void Explain(const ExplainRequest& request, const Console& console);

/// Adds `tarn explain NAME.exe [--json] [-- ARGS...]`.
void AddExplainCommand(CLI::App& app, const Console& console, int& exitCode);

}  // namespace tarn::tools
