#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarn::tools {

/// How many letters have to be put in, left out, changed or exchanged with their neighbour to make
/// one word of the other. The case of ASCII letters does not count.
std::size_t EditDistance(std::wstring_view a, std::wstring_view b);

/// The word that was probably meant: the first of those with the smallest distance, when that is at
/// most a third of the written word's letters. Empty when none is that close.
std::wstring ClosestWord(std::wstring_view written, const std::vector<std::wstring>& words);

}  // namespace tarn::tools
