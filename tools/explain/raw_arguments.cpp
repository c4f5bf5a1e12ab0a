#include "tools/explain/raw_arguments.h"

namespace tarn::tools {
namespace {

constexpr std::wstring_view kBlanks = L" \t";

// The length of the word at the front of `text`. The program's own name knows no backslashes before
// quotes: it is a path.
std::size_t WordLength(std::wstring_view text, bool isProgramName) {
    bool quoted = false;
    std::size_t backslashes = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const wchar_t c = text[at];
        if (c == L'"' && (isProgramName || backslashes % 2 == 0)) quoted = !quoted;
        if (!quoted && kBlanks.find(c) != std::wstring_view::npos) return at;
        backslashes = c == L'\\' ? backslashes + 1 : 0;
    }
    return text.size();
}

void SkipBlanks(std::wstring_view& text) {
    const std::size_t next = text.find_first_not_of(kBlanks);
    text.remove_prefix(next == std::wstring_view::npos ? text.size() : next);
}

}  // namespace

std::optional<std::wstring_view> RawArguments(std::wstring_view commandLine) {
    std::wstring_view rest = commandLine;
    rest.remove_prefix(WordLength(rest, true));
    for (SkipBlanks(rest); !rest.empty(); SkipBlanks(rest)) {
        const std::wstring_view word = rest.substr(0, WordLength(rest, false));
        rest.remove_prefix(word.size());
        if (word == L"--" || word == L"\"--\"") {
            SkipBlanks(rest);
            return rest;
        }
    }
    return std::nullopt;
}

}  // namespace tarn::tools
