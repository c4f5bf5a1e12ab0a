#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// Splits a text into arguments. Only the blank U+0020 separates, and runs of it count as one. An
/// argument that begins with a double quote runs to the next one (or to the end of the text), and
/// the quotes are not part of it; what follows the closing quote begins a new argument. Any other
/// argument runs to the next blank, quotes inside it included. There is no escape character.
/// A pair of quotes with nothing between them gives an empty argument.
std::vector<std::wstring> SplitArguments(std::wstring_view text);

}  // namespace tarn
