// Splits "Virtual Machine Parameters" into tokens and removes their quotes.

#include <algorithm>
#include <vector>

#include "fuzz/fuzz_input.h"
#include "jvm/vm_parameters.h"

namespace {

using tarn::fuzz::Require;

std::vector<std::wstring> NaiveSplit(const std::wstring& text) {
    std::vector<std::wstring> tokens;
    std::wstring token;
    bool quoted = false;
    for (const wchar_t c : text) {
        if (c == L'"') quoted = !quoted;
        if (c != L' ' || quoted) {
            token += c;
        } else if (!token.empty()) {
            tokens.push_back(token);
            token.clear();
        }
    }
    if (!token.empty()) tokens.push_back(token);
    return tokens;
}

std::wstring NaiveUnquote(std::wstring rest) {
    std::wstring result;
    for (;;) {
        const std::size_t open = rest.find(L'"');
        if (open == std::wstring::npos) return result + rest;
        const std::size_t close = rest.find(L'"', open + 1);
        if (close == std::wstring::npos) return result + rest;
        const bool doubled = rest.substr(close + 1, 1) == L"\"";
        result += rest.substr(0, open) + rest.substr(open + 1, close - open - 1);
        if (doubled) result += L'"';
        rest = rest.substr(close + (doubled ? 2 : 1));
    }
}

void CheckSplit(const std::wstring& text) {
    const std::vector<std::wstring> tokens = tarn::SplitVmParameters(text);
    Require(tokens == NaiveSplit(text));
    // Joined with spaces, they split into the same tokens: only spaces were removed.
    std::wstring joined;
    for (const std::wstring& token : tokens) joined += token + L"  ";
    const auto last = tokens.empty() ? 0 : std::count(joined.begin(), joined.end(), L'"') % 2;
    if (last == 0) Require(tarn::SplitVmParameters(joined) == tokens);
}

void CheckUnquote(const std::wstring& option) {
    const std::wstring result = tarn::RemoveQuotes(option);
    Require(result == NaiveUnquote(option));
    // Quotes may be removed; everything else stays in order.
    std::wstring before = option;
    std::wstring after = result;
    std::erase(before, L'"');
    std::erase(after, L'"');
    Require(before == after);
    const auto quotes = std::count(option.begin(), option.end(), L'"');
    if (quotes < 2) Require(result == option);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text = tarn::fuzz::FuzzInput(data, size).TakeText();
    CheckSplit(text);
    CheckUnquote(text);
    for (const std::wstring& token : tarn::SplitVmParameters(text)) CheckUnquote(token);
    return 0;
}
