#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// The arguments of a process's command line: white space at both ends removed, split, and the
/// first token, the program's own path, left out.
std::vector<std::wstring> ArgumentsOf(std::wstring_view commandLine);

/// Whether an argument is exactly "-nosplash" or "/nosplash". Letter case counts.
bool SuppressesSplash(const std::vector<std::wstring>& arguments);

}  // namespace tarn
