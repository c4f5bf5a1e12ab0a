#pragma once

#include <CLI/CLI.hpp>
#include <filesystem>
#include <string>

namespace tarn::tools {

/// Adds the option --config to a command; `file` receives its value, for `ApplyConfigFile`.
void AddConfigOption(CLI::App& command, std::string& file);

/// Sets those options of a command that the command line does not contain from a file with lines
/// "option = value" (UTF-8), to be called when the command line has been read. Throws Failure for a
/// file that cannot be read or is not UTF-8, and for a line that is not an option with values that
/// it accepts.
void ApplyConfigFile(CLI::App& command, const std::filesystem::path& file);

}  // namespace tarn::tools
