#include "ui/link_fonts.h"

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

}  // namespace tarn
