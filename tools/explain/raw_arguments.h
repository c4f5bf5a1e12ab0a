#pragma once

#include <optional>
#include <string_view>

namespace tarn::tools {

/// The text after the argument "--" of a command line, verbatim: the launcher splits its command
/// line by its own rules, so quotes and spaces must reach it unchanged. "--" is found by the C
/// library's rules for quotes and backslashes. Nothing when there is no such argument.
std::optional<std::wstring_view> RawArguments(std::wstring_view commandLine);

}  // namespace tarn::tools
