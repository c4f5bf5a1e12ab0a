// A link's label comes from a resource that somebody edited, its colours from a registry value that
// anybody may have written.

#include <cstdint>
#include <cstdlib>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "ui/link_color.h"
#include "ui/link_markup.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

// The pieces, with the marks between them put back, are the text.
void CheckMarkup(const std::wstring& text) {
    const tarn::LinkLabel label = tarn::ScanLinkMarkup(text);
    if (label.link.size() == text.size()) {
        Require(label.link == text && label.prefix.empty() && label.suffix.empty());
        return;
    }
    const std::wstring_view whole = text;
    Require(whole.starts_with(label.prefix));
    const std::wstring_view rest = whole.substr(label.prefix.size());
    Require(rest.starts_with(L"<A>") || rest.starts_with(L"<a>"));
    Require(rest.substr(3).starts_with(label.link));
    const std::wstring_view behind = rest.substr(3 + label.link.size());
    Require(behind.empty() || behind.substr(4) == label.suffix);
    Require(label.link.find(L"</A>") == std::wstring_view::npos);
    Require(label.prefix.find(L"<A>") == std::wstring_view::npos);
}

void CheckColor(std::uint32_t type, std::span<const std::uint8_t> data, const std::wstring& text) {
    const std::optional<tarn::PackedColor> color = tarn::LinkColorOfValue(type, data);
    const bool isText = type == 1 || type == 2;
    const bool isTerminated = !text.empty() && data.size() % 2 == 0 && text.back() == L'\0';
    if (!isText || !isTerminated) {
        Require(!color);
        return;
    }
    Require(color == tarn::ParseLinkColor(text.substr(0, text.find(L'\0'))));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    // On the heap and alone, so that a byte read beyond it is noticed.
    const std::vector<std::uint8_t> value(data + 1, data + size);
    std::wstring text;
    for (std::size_t at = 0; at + 1 < value.size(); at += 2)
        text.push_back(static_cast<wchar_t>(value[at] | (value[at + 1] << 8)));
    CheckMarkup(text);
    CheckColor(*data % 4, value, text);
    return 0;
}
