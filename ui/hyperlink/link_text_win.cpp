#include <algorithm>

#include "ui/hyperlink/link_text.h"

namespace tarn {
namespace {

HFONT CreateIconTitleFont() {
    LOGFONTW font;
    if (!SystemParametersInfoW(SPI_GETICONTITLELOGFONT, sizeof(font), &font, 0)) return nullptr;
    return CreateFontIndirectW(&font);
}

HFONT CreateUnderlinedCopy(HFONT normal) {
    LOGFONTW font;
    if (normal == nullptr || GetObjectW(normal, sizeof(font), &font) == 0) return nullptr;
    font.lfUnderline = TRUE;
    return CreateFontIndirectW(&font);
}

UINT DrawFlags(const LinkFormat& format) {
    UINT flags = format.singleLine ? DT_SINGLELINE : DT_WORDBREAK;
    if (format.alignment == LinkAlignment::Center) flags |= DT_CENTER;
    if (format.alignment == LinkAlignment::Right) flags |= DT_RIGHT;
    if (format.plainAmpersand) flags |= DT_NOPREFIX;
    return flags;
}

PixelSize Measure(HDC dc, std::wstring_view text, HFONT font, UINT flags, std::int32_t width) {
    if (text.empty()) return {};
    RECT area{0, 0, std::max(width, 0), 0};
    const GdiSelection selection(dc, font);
    DrawTextW(dc, text.data(), static_cast<int>(text.size()), &area, flags | DT_CALCRECT);
    return {area.right - area.left, area.bottom - area.top};
}

void Draw(HDC dc, std::wstring_view text, HFONT font, UINT flags, const PixelRect& area) {
    if (text.empty()) return;
    RECT place{area.left, area.top, area.right, area.bottom};
    const GdiSelection selection(dc, font);
    DrawTextW(dc, text.data(), static_cast<int>(text.size()), &place, flags);
}

}  // namespace

void LinkFonts::Use(HFONT normal) {
    ownNormal_.reset(normal == nullptr ? CreateIconTitleFont() : nullptr);
    normal_ = normal == nullptr ? ownNormal_.get() : normal;
    underlined_.reset(CreateUnderlinedCopy(normal_));
}

void LinkFonts::Release() {
    normal_ = nullptr;
    ownNormal_.reset();
    underlined_.reset();
}

HFONT LinkFonts::link() const {
    if (underlined_) return underlined_.get();
    return static_cast<HFONT>(GetStockObject(SYSTEM_FONT));
}

LinkLayout MeasureLink(HDC dc, const std::wstring& text, const LinkFonts& fonts,
                       const LinkFormat& format, std::int32_t clientWidth) {
    const LinkLabel label = ScanLinkMarkup(text);
    const UINT flags = DrawFlags(format);
    const PixelSize prefix = Measure(dc, label.prefix, fonts.normal(), flags, clientWidth);
    const std::int32_t rest = clientWidth - prefix.width;
    const PixelSize link = Measure(dc, label.link, fonts.link(), flags, rest);
    const PixelSize suffix = Measure(dc, label.suffix, fonts.normal(), flags, rest - link.width);
    return LayOutLink(clientWidth, format.alignment, prefix, link, suffix);
}

void DrawLink(HDC dc, const std::wstring& text, const LinkFonts& fonts, const LinkFormat& format,
              const LinkLayout& layout) {
    const LinkLabel label = ScanLinkMarkup(text);
    const UINT flags = DrawFlags(format);
    Draw(dc, label.prefix, fonts.normal(), flags, layout.prefix);
    Draw(dc, label.link, fonts.link(), flags, layout.link);
    Draw(dc, label.suffix, fonts.normal(), flags, layout.suffix);
}

}  // namespace tarn
