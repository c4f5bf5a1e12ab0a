#include "tools/check/spelling.h"

#include <algorithm>

#include "tools/common/ascii.h"

namespace tarn::tools {
namespace {

// Longer texts are not misspelt words, and the cost is the product of both lengths.
constexpr std::size_t kLongestWord = 64;

}  // namespace

std::size_t EditDistance(std::wstring_view a, std::wstring_view b) {
    std::vector<std::size_t> beforeLast(b.size() + 1), last(b.size() + 1), row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) last[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const bool isSame = ToLowerAscii(a[i - 1]) == ToLowerAscii(b[j - 1]);
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (isSame ? 0 : 1)});
            if (i > 1 && j > 1 && ToLowerAscii(a[i - 1]) == ToLowerAscii(b[j - 2]) &&
                ToLowerAscii(a[i - 2]) == ToLowerAscii(b[j - 1])) {
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
            }
        }
        beforeLast.swap(last);
        last.swap(row);
    }
    return last[b.size()];
}

std::wstring ClosestWord(std::wstring_view written, const std::vector<std::wstring>& words) {
    if (written.size() > kLongestWord) return {};
    const std::size_t limit = std::max<std::size_t>(1, written.size() / 3);
    std::wstring closest;
    std::size_t smallest = limit + 1;
    for (const std::wstring& word : words) {
        const std::size_t lengths = written.size() > word.size() ? written.size() - word.size()
                                                                 : word.size() - written.size();
        // Each character of difference is at least one insertion or deletion.
        if (lengths >= smallest) continue;
        const std::size_t distance = EditDistance(written, word);
        if (distance < smallest) {
            smallest = distance;
            closest = word;
        }
    }
    return closest;
}

std::wstring SpellingHelp::ClosestWord(std::wstring_view written,
                                       const std::vector<std::wstring>& words) {
    return ++given_ > kMost ? std::wstring() : tools::ClosestWord(written, words);
}

}  // namespace tarn::tools
