#include "tools/explain/raw_arguments.h"

namespace tarn::tools {
namespace {

constexpr std::wstring_view kSeparators = L" \t";

// The length of the first argument of `text`. In the program's name, which is a path, a backslash
// does not escape a quote.
std::size_t ArgumentLength(std::wstring_view text, bool isProgramName) {
    bool quoted = false;
    std::size_t backslashes = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const wchar_t c = text[at];
        if (c == L'"' && (isProgramName || backslashes % 2 == 0)) quoted = !quoted;
        if (!quoted && kSeparators.find(c) != std::wstring_view::npos) return at;
        backslashes = c == L'\\' ? backslashes + 1 : 0;
    }
    return text.size();
}

void SkipSeparators(std::wstring_view& text) {
    const std::size_t next = text.find_first_not_of(kSeparators);
    text.remove_prefix(next == std::wstring_view::npos ? text.size() : next);
}

}  // namespace

std::optional<std::wstring_view> RawArguments(std::wstring_view commandLine) {
    std::wstring_view rest = commandLine;
    rest.remove_prefix(ArgumentLength(rest, true));
    for (SkipSeparators(rest); !rest.empty(); SkipSeparators(rest)) {
        const std::wstring_view word = rest.substr(0, ArgumentLength(rest, false));
        rest.remove_prefix(word.size());
        if (word == L"--" || word == L"\"--\"") {
            SkipSeparators(rest);
            return rest;
        }
    }
    return std::nullopt;
}

}  // namespace tarn::tools
