#pragma once

#include <cstdint>

#include "ui/pixel_rect.h"

namespace tarn {

enum class LinkAlignment { Left, Center, Right };

/// Where the horizontal alignment of a static control with this window style puts its text.
LinkAlignment LinkAlignmentOf(std::uint32_t style);

/// Whether a static control with this window style shows text. The kinds that show an icon, a
/// rectangle, a frame, a bitmap or a metafile are told by the style's whole low byte.
bool ShowsText(std::uint32_t style);

/// Where the pieces of a label go, in client coordinates.
struct LinkLayout {
    PixelRect prefix;
    PixelRect link;
    PixelRect suffix;
};

/// Puts the measured pieces beside each other from the top, together aligned in a client area of
/// `clientWidth`. Pieces wider than that begin at its left edge.
LinkLayout LayOutLink(std::int32_t clientWidth, LinkAlignment alignment, PixelSize prefix,
                      PixelSize link, PixelSize suffix);

/// Size in bytes of the record that a tool is registered with at a tooltip: the record grew with
/// Windows Vista, and older ones refuse the new size.
constexpr std::uint32_t ToolRecordSize(bool vistaOrLater) {
    return vistaOrLater ? 72 : 64;
}

}  // namespace tarn
