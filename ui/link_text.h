#pragma once

#include <string>

#include "base/windows.h"
#include "ui/link_fonts.h"
#include "ui/link_layout.h"

namespace tarn {

/// How a link's text runs: on one line or broken at words, and to which side.
struct LinkFormat {
    bool singleLine = false;
    LinkAlignment alignment = LinkAlignment::Left;
    /// "&" underlines nothing and is drawn as it stands (`SS_NOPREFIX`).
    bool plainAmpersand = false;
};

/// Where the pieces of a marked-up text go in a client area of `clientWidth` (`DrawTextW` with
/// `DT_CALCRECT`).
LinkLayout MeasureLink(HDC dc, const std::wstring& text, const LinkFonts& fonts,
                       const LinkFormat& format, std::int32_t clientWidth);

/// Draws the pieces where `layout` puts them, in the text colour and background mode of `dc`.
void DrawLink(HDC dc, const std::wstring& text, const LinkFonts& fonts, const LinkFormat& format,
              const LinkLayout& layout);

}  // namespace tarn
