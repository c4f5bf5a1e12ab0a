#pragma once

#include <filesystem>

namespace tarn::bench {

/// Prints the executable's size, with and without its icon, and its static imports, against their
/// budgets.
void PrintExecutableReport(const std::filesystem::path& executable);

}  // namespace tarn::bench
