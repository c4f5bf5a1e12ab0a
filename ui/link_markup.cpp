#include "ui/link_markup.h"

#include "base/text.h"

namespace tarn {
namespace {

// The marks are plain ASCII, and no locale has other letters that fold to "a": comparing as ASCII
// is what comparing in the user's locale comes to.
std::size_t FindMark(std::wstring_view text, std::wstring_view mark) {
    for (std::size_t at = 0; at + mark.size() <= text.size(); ++at)
        if (EqualsIgnoringCase(text.substr(at, mark.size()), mark)) return at;
    return std::wstring_view::npos;
}

constexpr std::wstring_view kOpening = L"<A>";
constexpr std::wstring_view kClosing = L"</A>";

}  // namespace

LinkLabel ScanLinkMarkup(std::wstring_view text) {
    const std::size_t opening = FindMark(text, kOpening);
    if (opening == std::wstring_view::npos) return {{}, text, {}};
    const std::wstring_view rest = text.substr(opening + kOpening.size());
    const std::size_t closing = FindMark(rest, kClosing);
    if (closing == std::wstring_view::npos) return {text.substr(0, opening), rest, {}};
    return {text.substr(0, opening), rest.substr(0, closing),
            rest.substr(closing + kClosing.size())};
}

}  // namespace tarn
