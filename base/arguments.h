#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// Splits a text into arguments. Only the space U+0020 separates arguments, and consecutive spaces
/// count as one. An argument that begins with a double quote extends to the next double quote, or
/// to the end of the text; the quotes are removed, and the text after the closing quote begins a
/// new argument. Any other argument extends to the next space, including quotes inside it. There is
/// no escape character. Two adjacent quotes are an empty argument.
std::vector<std::wstring> SplitArguments(std::wstring_view text);

}  // namespace tarn
