#include "ui/hyperlink/link_text.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

TEST(LinkFontsTest, ThePlainFontIsTheOwnersAndTheLinksItsUnderlinedCopy) {
    const auto owners = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    LinkFonts fonts;
    fonts.Use(owners);
    EXPECT_EQ(fonts.normal(), owners);
    LOGFONTW plain{};
    LOGFONTW underlined{};
    ASSERT_NE(GetObjectW(owners, sizeof(plain), &plain), 0);
    ASSERT_NE(GetObjectW(fonts.link(), sizeof(underlined), &underlined), 0);
    EXPECT_FALSE(plain.lfUnderline);
    EXPECT_TRUE(underlined.lfUnderline);
    EXPECT_EQ(underlined.lfHeight, plain.lfHeight);
    EXPECT_STREQ(underlined.lfFaceName, plain.lfFaceName);
}

TEST(LinkFontsTest, WithoutAnOwnersFontThatOfIconTitlesIsCopied) {
    LOGFONTW wanted{};
    ASSERT_TRUE(SystemParametersInfoW(SPI_GETICONTITLELOGFONT, sizeof(wanted), &wanted, 0));
    LinkFonts fonts;
    fonts.Use(nullptr);
    const HFONT normal = fonts.normal();
    const HFONT link = fonts.link();
    LOGFONTW actual{};
    ASSERT_NE(GetObjectW(normal, sizeof(actual), &actual), 0);
    EXPECT_STREQ(actual.lfFaceName, wanted.lfFaceName);
    EXPECT_EQ(actual.lfHeight, wanted.lfHeight);

    fonts.Release();
    EXPECT_EQ(GetObjectType(normal), 0u);
    EXPECT_EQ(GetObjectType(link), 0u);
    EXPECT_EQ(fonts.link(), GetStockObject(SYSTEM_FONT));
}

TEST(LinkFontsTest, TheOwnersFontIsNotDeleted) {
    LOGFONTW description{};
    const HFONT owners = CreateFontIndirectW(&description);
    {
        LinkFonts fonts;
        fonts.Use(owners);
        fonts.Use(owners);
    }
    EXPECT_EQ(GetObjectType(owners), static_cast<DWORD>(OBJ_FONT));
    DeleteObject(owners);
}

}  // namespace
}  // namespace tarn
