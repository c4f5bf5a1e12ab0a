#pragma once

#include <string>

#include "base/handles.h"
#include "base/windows.h"
#include "ui/hyperlink/link_layout.h"

namespace tarn {

/// The two fonts of a link: one for plain text, and its underlined copy.
class LinkFonts {
  public:
    /// Uses `normal` for plain text. The caller owns it and keeps it longer than this object uses
    /// it. Null selects the font of icon titles, which this object owns.
    void Use(HFONT normal);

    void Release();

    HFONT normal() const { return normal_; }
    /// The underlined copy; a stock font when there is no plain one to copy.
    HFONT link() const;

  private:
    HFONT normal_ = nullptr;
    UniqueFont ownNormal_;
    UniqueFont underlined_;
};

/// How the text of a link is drawn.
struct LinkFormat {
    /// On one line rather than broken at words.
    bool singleLine = false;
    LinkAlignment alignment = LinkAlignment::Left;
    /// "&" is drawn rather than underlining the next character (`SS_NOPREFIX`).
    bool plainAmpersand = false;
};

/// Measures the pieces of a text with mark-up (`DrawTextW` with `DT_CALCRECT`) and returns their
/// places in a client area of `clientWidth` pixels.
LinkLayout MeasureLink(HDC dc, const std::wstring& text, const LinkFonts& fonts,
                       const LinkFormat& format, std::int32_t clientWidth);

/// Draws the pieces at the places of `layout`, in the text colour and background mode of `dc`.
void DrawLink(HDC dc, const std::wstring& text, const LinkFonts& fonts, const LinkFormat& format,
              const LinkLayout& layout);

}  // namespace tarn
