#include "ui/link_layout.h"

#include <algorithm>

namespace tarn {
namespace {

// The kinds of a static control, as Windows numbers them.
constexpr std::uint32_t kKindMask = 0x1F;  // SS_TYPEMASK
constexpr std::uint32_t kCenter = 1;       // SS_CENTER
constexpr std::uint32_t kRight = 2;        // SS_RIGHT

}  // namespace

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
