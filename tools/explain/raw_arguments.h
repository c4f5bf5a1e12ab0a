#pragma once

#include <optional>
#include <string_view>

namespace tarn::tools {

/// What stands behind the word "--" in a process's command line, as it was typed: the launcher
/// splits its command line by rules of its own, so quotes and blanks have to reach it untouched.
/// Words are told apart as the C library does, quotes and backslashes before them included. Nothing
/// when there is no such word.
std::optional<std::wstring_view> RawArguments(std::wstring_view commandLine);

}  // namespace tarn::tools
