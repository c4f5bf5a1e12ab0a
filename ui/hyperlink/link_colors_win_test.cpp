#include "ui/hyperlink/link_colors.h"

#include <gtest/gtest.h>

#include "base/windows.h"
#include "tests/unit_support/browser_colors_in_registry.h"

namespace tarn {
namespace {

constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr COLORREF kPurple = RGB(128, 0, 128);

class BrowserColorsTest : public testing::Test {
  protected:
    void SetUp() override { ClearBrowserColors(); }
    void TearDown() override { ClearBrowserColors(); }
};

TEST_F(BrowserColorsTest, AnInvalidColourLeavesTheDefault) {
    const struct {
        DWORD type;
        std::wstring value;
    } wrong[] = {
        {REG_SZ, L"255,0"},
        {REG_SZ, L""},
        {REG_SZ, L"red"},
        {REG_BINARY, L"255,0,0"},
        {REG_MULTI_SZ, L"255,0,0"},
        {REG_SZ, L"255,0,000000"},  // one character longer than the buffer
    };
    for (const auto& [type, value] : wrong) {
        SetBrowserColor(L"Anchor Color", type, value);
        LinkColors colors;
        ReadBrowserColors(colors);
        EXPECT_EQ(colors.link, kBlue) << type;
        EXPECT_EQ(colors.visited, kPurple);
    }
}

TEST_F(BrowserColorsTest, TheLongestColourThatFitsIsRead) {
    SetBrowserColor(L"Anchor Color", REG_SZ, L"255,255,255");
    LinkColors colors;
    ReadBrowserColors(colors);
    EXPECT_EQ(colors.link, RGB(255, 255, 255));
}

TEST_F(BrowserColorsTest, AnUnterminatedColourIsNotRead) {
    SetBrowserColorBytes(L"Anchor Color", REG_SZ, std::wstring(L"255,0,0"));
    LinkColors colors;
    ReadBrowserColors(colors);
    EXPECT_EQ(colors.link, kBlue);
}

}  // namespace
}  // namespace tarn
