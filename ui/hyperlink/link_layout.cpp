#include "ui/hyperlink/link_layout.h"

#include <algorithm>

#include "base/text.h"

namespace tarn {
namespace {

// The marks are ASCII, and in no locale does another letter equal "a": the ASCII comparison gives
// the result of one in the user's locale.
std::size_t FindMark(std::wstring_view text, std::wstring_view mark) {
    for (std::size_t at = 0; at + mark.size() <= text.size(); ++at)
        if (EqualsIgnoringCase(text.substr(at, mark.size()), mark)) return at;
    return std::wstring_view::npos;
}

constexpr std::wstring_view kOpening = L"<A>";
constexpr std::wstring_view kClosing = L"</A>";

// The types of a static control, from winuser.h.
constexpr std::uint32_t kKindMask = 0x1F;  // SS_TYPEMASK
constexpr std::uint32_t kCenter = 1;       // SS_CENTER
constexpr std::uint32_t kRight = 2;        // SS_RIGHT

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

LinkAlignment LinkAlignmentOf(std::uint32_t style) {
    switch (style & kKindMask) {
        case kCenter:
            return LinkAlignment::Center;
        case kRight:
            return LinkAlignment::Right;
        default:
            return LinkAlignment::Left;
    }
}

bool ShowsText(std::uint32_t style) {
    const std::uint32_t kind = style & 0xFF;
    return !((kind >= 3 && kind <= 9) || (kind >= 13 && kind <= 15));
}

LinkLayout LayOutLink(std::int32_t clientWidth, LinkAlignment alignment, PixelSize prefix,
                      PixelSize link, PixelSize suffix) {
    const std::int32_t spare = clientWidth - prefix.width - link.width - suffix.width;
    std::int32_t left = 0;
    if (alignment == LinkAlignment::Center) left = std::max(spare / 2, 0);
    if (alignment == LinkAlignment::Right) left = std::max(spare, 0);

    LinkLayout layout;
    layout.prefix = {left, 0, left + prefix.width, prefix.height};
    layout.link = {layout.prefix.right, 0, layout.prefix.right + link.width, link.height};
    layout.suffix = {layout.link.right, 0, layout.link.right + suffix.width, suffix.height};
    return layout;
}

}  // namespace tarn
