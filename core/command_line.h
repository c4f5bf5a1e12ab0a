#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// Returns the arguments of a process's command line, without the first token, which is the path of
/// the program. White space at both ends of the command line is ignored.
std::vector<std::wstring> ArgumentsOf(std::wstring_view commandLine);

/// Returns whether an argument is exactly "-nosplash" or "/nosplash" (case-sensitive).
bool SuppressesSplash(const std::vector<std::wstring>& arguments);

}  // namespace tarn
