#pragma once

#include <cstdint>
#include <string_view>

#include "ui/geometry/placement.h"

namespace tarn {

/// The pieces of a link's label, as views of the label.
struct LinkLabel {
    std::wstring_view prefix;  ///< plain text before the link
    std::wstring_view link;    ///< the underlined part, which reacts to the mouse
    std::wstring_view suffix;  ///< plain text after the link
};

/// Finds the link between the first "<A>" and the next "</A>"; both are case-insensitive. Without
/// the closing mark the link extends to the end of the text; without the opening mark the whole
/// text is the link. The text after the closing mark is not scanned for further links.
LinkLabel ScanLinkMarkup(std::wstring_view text);

enum class LinkAlignment { Left, Center, Right };

/// The alignment of a static control's text, from its window style.
LinkAlignment LinkAlignmentOf(std::uint32_t style);

/// Whether a static control with this window style shows text rather than an icon, a rectangle, a
/// frame, a bitmap or a metafile. The whole low byte of the style is compared.
bool ShowsText(std::uint32_t style);

/// The places of a label's pieces, in client coordinates.
struct LinkLayout {
    PixelRect prefix;
    PixelRect link;
    PixelRect suffix;
};

/// Puts the measured pieces beside each other at the top, together aligned in a client area of
/// `clientWidth` pixels. Pieces wider than that begin at its left edge.
LinkLayout LayOutLink(std::int32_t clientWidth, LinkAlignment alignment, PixelSize prefix,
                      PixelSize link, PixelSize suffix);

}  // namespace tarn
