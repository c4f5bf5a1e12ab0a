#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarn::tools {

/// The number of insertions, deletions, substitutions and transpositions of adjacent characters
/// that turn one word into the other (optimal string alignment). ASCII letters are compared
/// case-insensitively.
std::size_t EditDistance(std::wstring_view a, std::wstring_view b);

/// The first word with the smallest distance, if that is at most a third of the length of
/// `written`; otherwise empty.
std::wstring ClosestWord(std::wstring_view written, const std::vector<std::wstring>& words);

}  // namespace tarn::tools
