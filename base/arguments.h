#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// Splits a text into arguments: the command line and the setting "Cmd". Only the space U+0020
/// separates arguments, and consecutive spaces count as one. An argument that begins with a double
/// quote extends to the next double quote, or to the end of the text; the quotes are removed, and
/// the text after the closing quote begins a new argument. Any other argument extends to the next
/// space, including quotes inside it. There is no escape character. Two adjacent quotes are an
/// empty argument. The rules are fixed: docs/developer/compatibility.md.
std::vector<std::wstring> SplitArguments(std::wstring_view text);

/// Returns the arguments of a process's command line, without the first token, which is the path of
/// the program. White space at both ends of the command line is ignored.
std::vector<std::wstring> ArgumentsOf(std::wstring_view commandLine);

/// Returns whether an argument is exactly "-nosplash" or "/nosplash" (case-sensitive). The switch
/// stays in the argument list (docs/developer/compatibility.md).
bool SuppressesSplash(const std::vector<std::wstring>& arguments);

}  // namespace tarn
