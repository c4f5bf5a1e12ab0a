// A link's label comes from a resource that can be edited.

#include <algorithm>

#include "fuzz/fuzz_input.h"
#include "ui/hyperlink/link_layout.h"

namespace {

using tarn::fuzz::Require;

// A model: the position of `mark` (in capitals), ignoring case; the text's size when it is absent.
std::size_t NaiveFind(const std::wstring& text, const std::wstring& mark) {
    std::wstring capitals = text;
    for (wchar_t& c : capitals)
        if (c == L'a') c = L'A';
    return std::min(capitals.find(mark), text.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text = tarn::fuzz::FuzzInput(data, size).TakeText();
    const tarn::LinkLabel label = tarn::ScanLinkMarkup(text);
    const std::size_t opening = NaiveFind(text, L"<A>");
    if (opening == text.size()) {
        Require(label.prefix.empty() && label.link == text && label.suffix.empty());
        return 0;
    }
    const std::wstring rest = text.substr(opening + 3);
    const std::size_t closing = NaiveFind(rest, L"</A>");
    Require(label.prefix == text.substr(0, opening));
    Require(label.link == rest.substr(0, closing));
    Require(label.suffix == (closing == rest.size() ? L"" : rest.substr(closing + 4)));
    return 0;
}
