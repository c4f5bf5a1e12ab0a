#pragma once

#include "ui/link_color.h"

namespace tarn {

/// The two colours of a link.
struct LinkColors {
    PackedColor link = 0xFF0000;     ///< RGB(0, 0, 255)
    PackedColor visited = 0x800080;  ///< RGB(128, 0, 128)
};

/// Replaces the colours by those that the user has set for the browser's links, each for itself. A
/// key that cannot be opened for reading and writing, or a value that is no colour, changes
/// nothing.
void ReadBrowserColors(LinkColors& colors);

}  // namespace tarn
