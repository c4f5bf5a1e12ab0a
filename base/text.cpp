#include "base/text.h"

#include <algorithm>
#include <cwctype>

namespace tarn {
namespace {

wchar_t LowerAscii(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

bool IsWhiteSpace(wchar_t c) {
    return std::iswspace(static_cast<std::wint_t>(c)) != 0;
}

}  // namespace

bool EqualsIgnoringCase(std::wstring_view a, std::wstring_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](wchar_t x, wchar_t y) { return LowerAscii(x) == LowerAscii(y); });
}

std::wstring_view TrimWhiteSpace(std::wstring_view text) {
    while (!text.empty() && IsWhiteSpace(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsWhiteSpace(text.back())) text.remove_suffix(1);
    return text;
}

std::wstring ReplaceAll(std::wstring_view text, wchar_t from, wchar_t to) {
    std::wstring result(text);
    std::replace(result.begin(), result.end(), from, to);
    return result;
}

std::wstring_view CutAtLast(std::wstring_view text, wchar_t mark) {
    return text.substr(0, text.rfind(mark));
}

std::wstring Concat(std::initializer_list<std::wstring_view> texts) {
    std::size_t size = 0;
    for (const std::wstring_view text : texts) size += text.size();
    std::wstring result;
    result.reserve(size);
    for (const std::wstring_view text : texts) result += text;
    return result;
}

std::wstring EnsureTrailing(std::wstring_view text, wchar_t ending) {
    std::wstring result(text);
    if (result.empty() || result.back() != ending) result += ending;
    return result;
}

std::vector<std::wstring> Split(std::wstring_view text, wchar_t separator) {
    std::vector<std::wstring> pieces;
    if (text.empty()) return pieces;
    for (;;) {
        const std::size_t end = text.find(separator);
        pieces.emplace_back(text.substr(0, end));
        if (end == std::wstring_view::npos) return pieces;
        text.remove_prefix(end + 1);
    }
}

bool IsAbsolutePath(std::wstring_view path) {
    return (path.size() >= 2 && path[1] == L':') || path.substr(0, 2) == L"\\\\";
}

std::wstring_view FolderOf(std::wstring_view path) {
    return path.substr(0, path.rfind(L'\\') + 1);
}

}  // namespace tarn
