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

/// Suggests known words for misspelt ones. A comparison with many words is expensive, so only the
/// first `kMost` requests are answered: a file with more misspelt words is not a settings file.
class SpellingHelp {
  public:
    static constexpr std::size_t kMost = 100;

    /// Like the function, but empty after `kMost` calls.
    std::wstring ClosestWord(std::wstring_view written, const std::vector<std::wstring>& words);

  private:
    std::size_t given_ = 0;
};

}  // namespace tarn::tools
