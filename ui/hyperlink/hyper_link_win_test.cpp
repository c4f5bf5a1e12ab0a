#include "ui/hyperlink/hyper_link.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/unit_support/hyper_link_fixture.h"
#include "tests/unit_support/url_handler.h"

namespace tarn {
namespace {

using HyperLinkTest = HyperLinkFixture;

using testing::IsEmpty;

TEST_F(HyperLinkTest, ATextWithoutMarkUpIsALinkToItself) {
    const HWND control = AttachTo(kAddress);
    EXPECT_EQ(link_.url(), kAddress);
    EXPECT_EQ(link_.linkRect().left, 0);
    EXPECT_EQ(link_.linkRect().top, 0);
    EXPECT_GT(link_.linkRect().right, 50);
    EXPECT_NE(GetWindowLongPtrW(control, GWL_STYLE) & SS_NOTIFY, 0);
}

TEST_F(HyperLinkTest, AnAddressSetBeforehandStays) {
    link_.SetUrl(L"https://elsewhere.example/");
    AttachTo(L"Click here");
    EXPECT_EQ(link_.url(), L"https://elsewhere.example/");
}

TEST_F(HyperLinkTest, ALabelSetBeforehandIsShownInsteadOfTheControlsText) {
    link_.SetLabel(L"x");
    AttachTo(L"A much longer text in the control");
    const LONG narrow = link_.linkRect().right;
    HyperLink other;
    ASSERT_TRUE(other.Attach(parent_.AddStatic(L"A much longer text in the control", SS_LEFT)));
    EXPECT_LT(narrow, other.linkRect().right);
    EXPECT_EQ(link_.url(), L"x");
}

TEST_F(HyperLinkTest, NothingIsAttachedToNoWindowOrTwice) {
    EXPECT_FALSE(link_.Attach(nullptr));
    const HWND control = AttachTo(kAddress);
    EXPECT_FALSE(link_.Attach(control));
    HyperLink second;
    EXPECT_FALSE(second.Attach(control));
}

TEST_F(HyperLinkTest, APictureControlPaintsItselfAndIsALinkEntirely) {
    link_.SetUrl(kAddress);
    const HWND control = AttachTo(L"", SS_BLACKRECT);
    EXPECT_EQ(link_.linkRect(), (PixelRect{0, 0, kLinkWidth, kLinkHeight}));
    const Picture picture = PictureOf(control);
    EXPECT_EQ(picture.Count(kBlue), 0);
}

TEST_F(HyperLinkTest, ATextLongerThanAnyBufferIsReadCompletely) {
    const std::wstring text(5000, L'x');
    AttachTo(text.c_str());
    EXPECT_EQ(link_.url(), text);
}

TEST_F(HyperLinkTest, TheLinkIsUnderlinedInTheLinkColour) {
    const HWND control = AttachTo(kAddress);
    const Picture picture = PictureOf(control);
    EXPECT_TRUE(picture.HasUnderline(link_.linkRect(), kBlue));
    // The parent's brush is visible around it, up to the corners.
    EXPECT_EQ(picture.At(kLinkWidth - 1, kLinkHeight - 1), kParentColor);
    EXPECT_EQ(picture.At(0, kLinkHeight - 1), kParentColor);
}

TEST_F(HyperLinkTest, TheScreenShowsTheSamePixels) {
    const HWND control = AttachTo(kAddress);
    UpdateWindow(control);
    const Picture screen = ScreenOf(control);
    EXPECT_TRUE(screen.HasUnderline(link_.linkRect(), kBlue));
}

TEST_F(HyperLinkTest, ThePrefixIsNotUnderlined) {
    const HWND control = AttachTo(L"Getting <A>Java</A>");
    const PixelRect link = link_.linkRect();
    ASSERT_GT(link.left, 10);
    const Picture picture = PictureOf(control);
    EXPECT_TRUE(picture.HasUnderline(link, kBlue));
    EXPECT_FALSE(picture.HasUnderline({0, link.top, link.left, link.bottom}, kBlue));
    EXPECT_EQ(link_.url(), L"Getting <A>Java</A>");
}

TEST_F(HyperLinkTest, ADisabledLinkIsGrey) {
    const HWND control = AttachTo(kAddress);
    EnableWindow(control, FALSE);
    const Picture picture = PictureOf(control);
    EXPECT_TRUE(picture.HasUnderline(link_.linkRect(), GetSysColor(COLOR_GRAYTEXT)));
    EXPECT_EQ(picture.Count(kBlue), 0);
    EXPECT_THAT(parent_.commands(), IsEmpty());
    EnableWindow(control, TRUE);
    EXPECT_TRUE(PictureOf(control).HasUnderline(link_.linkRect(), kBlue));
}

TEST_F(HyperLinkTest, TheControlsStyleAlignsTheLink) {
    AttachTo(L"Link", SS_CENTER);
    const PixelRect center = link_.linkRect();
    EXPECT_NEAR(center.left, kLinkWidth - center.right, 1);
    HyperLink right;
    ASSERT_TRUE(right.Attach(parent_.AddStatic(L"Link", SS_RIGHT)));
    EXPECT_EQ(right.linkRect().right, kLinkWidth);
}

TEST_F(HyperLinkTest, ALongTextIsBrokenAtWordsUnlessItIsASingleLine) {
    const wchar_t* const text = L"several words that do not fit beside each other in this control";
    AttachTo(text);
    EXPECT_LE(link_.linkRect().right, kLinkWidth);
    HyperLink single;
    single.SetSingleLine(true);
    ASSERT_TRUE(single.Attach(parent_.AddStatic(text, SS_LEFT)));
    EXPECT_GT(single.linkRect().right, kLinkWidth);
    EXPECT_LT(single.linkRect().bottom, link_.linkRect().bottom);
}

TEST_F(HyperLinkTest, ErasingIsHandledWithoutAnEffect) {
    const HWND control = AttachTo(kAddress);
    Picture picture;
    SetPixel(picture.dc(), 3, 3, RGB(1, 200, 3));
    EXPECT_EQ(SendMessageW(control, WM_ERASEBKGND, reinterpret_cast<WPARAM>(picture.dc()), 0), 1);
    EXPECT_EQ(picture.Count(RGB(1, 200, 3)), 1);
    EXPECT_EQ(picture.Count(RGB(0, 0, 0)), kLinkWidth * kLinkHeight - 1);
}

TEST_F(HyperLinkTest, AnotherFontOrSizeChangesTheLayout) {
    const HWND control = AttachTo(kAddress);
    const PixelRect before = link_.linkRect();
    LOGFONTW description{};
    description.lfHeight = -40;
    const HFONT large = CreateFontIndirectW(&description);
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(large), TRUE);
    EXPECT_GT(link_.linkRect().height(), before.height() + 10);
    EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)), large);
    parent_.Close();
    DeleteObject(large);
}

TEST_F(HyperLinkTest, TheColoursAreThoseOfTheUsersBrowser) {
    SetBrowserColor(L"Anchor Color", REG_SZ, L"255,0,0");
    SetBrowserColor(L"Anchor Color Visited", REG_EXPAND_SZ, L"0,128,0");
    const HWND control = AttachTo(kAddress);
    EXPECT_EQ(link_.colors().link, RGB(255, 0, 0));
    EXPECT_EQ(link_.colors().visited, RGB(0, 128, 0));
    EXPECT_TRUE(PictureOf(control).HasUnderline(link_.linkRect(), RGB(255, 0, 0)));
}

TEST_F(HyperLinkTest, TheToolTipShowsTheAddressOverTheLink) {
    link_.SetUrl(L"https://elsewhere.example/?a=1&b=2");
    AttachTo(L"See <A>this</A>");
    const ToolTipContents tool = ContentsOf(link_.toolTip());
    EXPECT_EQ(tool.count, 1);
    EXPECT_EQ(tool.text, L"https://elsewhere.example/?a=1&b=2");
    EXPECT_EQ(tool.area, link_.linkRect());
}

TEST_F(HyperLinkTest, ANewAddressReplacesTheToolTip) {
    AttachTo(L"Click here");
    EXPECT_EQ(ContentsOf(link_.toolTip()).text, L"Click here");
    link_.SetUrl(kAddress);
    const ToolTipContents tool = ContentsOf(link_.toolTip());
    EXPECT_EQ(tool.count, 1);
    EXPECT_EQ(tool.text, kAddress);
}

TEST_F(HyperLinkTest, ANewAddressOfALinkWithoutLabelIsLaidOut) {
    AttachTo(L"");
    EXPECT_EQ(link_.linkRect().width(), 0);
    link_.SetUrl(kAddress);
    EXPECT_GT(link_.linkRect().width(), 50);
    EXPECT_EQ(ContentsOf(link_.toolTip()).area, link_.linkRect());
}

TEST_F(HyperLinkTest, DestroyingTheControlReleasesFontsAndToolTip) {
    const HWND control = AttachTo(kAddress);
    const HWND toolTip = link_.toolTip().windowHandle();
    ASSERT_TRUE(IsWindow(toolTip));
    DestroyWindow(control);
    EXPECT_FALSE(IsWindow(toolTip));
    EXPECT_FALSE(link_.attached());
    EXPECT_EQ(link_.url(), L"");
}

TEST_F(HyperLinkTest, DestroyingTheLinkRestoresTheControl) {
    const HWND control = parent_.AddStatic(kAddress, SS_LEFT);
    const LONG_PTR before = GetWindowLongPtrW(control, GWLP_WNDPROC);
    {
        HyperLink brief;
        ASSERT_TRUE(brief.Attach(control));
        EXPECT_NE(GetWindowLongPtrW(control, GWLP_WNDPROC), before);
    }
    EXPECT_EQ(GetWindowLongPtrW(control, GWLP_WNDPROC), before);
    EXPECT_NE(SendMessageW(control, WM_GETDLGCODE, 0, 0), DLGC_WANTCHARS);
    HyperLink again;
    EXPECT_TRUE(again.Attach(control));
}

TEST_F(HyperLinkTest, AfterASecondAttachItIsUnvisited) {
    const UrlHandler handler(L"tarn-again");
    const HWND first = AttachTo(L"tarn-again:x");
    SendMessageW(first, WM_CHAR, L' ', 0);
    ASSERT_TRUE(link_.visited());
    DestroyWindow(first);
    EXPECT_TRUE(link_.Attach(parent_.AddStatic(kAddress, SS_LEFT)));
    EXPECT_FALSE(link_.visited());
}

TEST_F(HyperLinkTest, AfterASecondAttachItDrawsText) {
    // A frame shows no text, so the control paints itself.
    DestroyWindow(AttachTo(L"", SS_ETCHEDFRAME));
    EXPECT_TRUE(link_.Attach(parent_.AddStatic(L"A <A>link</A>", SS_CENTER)));
    EXPECT_LT(link_.linkRect().width(), kLinkWidth);
    EXPECT_GT(link_.linkRect().left, 0);
}

TEST_F(HyperLinkTest, AfterASecondAttachItReactsToTheMouse) {
    const HWND first = AttachTo(kAddress);
    const PixelRect& link = link_.linkRect();
    const LPARAM over = MAKELPARAM(link.left + 1, link.top + 1);
    SendMessageW(first, WM_MOUSEMOVE, 0, over);
    DestroyWindow(first);
    const HWND second = parent_.AddStatic(kAddress, SS_LEFT);
    EXPECT_TRUE(link_.Attach(second));
    UpdateWindow(second);
    SendMessageW(second, WM_MOUSEMOVE, 0, over);
    // Entering the link repaints it.
    EXPECT_TRUE(GetUpdateRect(second, nullptr, FALSE));
}

TEST_F(HyperLinkTest, ManyLinksLeakNothing) {
    const auto oneLife = [&] {
        HyperLink link;
        const HWND control = parent_.AddStatic(kAddress, SS_LEFT);
        ASSERT_TRUE(link.Attach(control));
        PictureOf(control);
        DestroyWindow(control);
    };
    oneLife();
    // Wine returns 0; there the tests of the fonts and the tooltip detect a leak.
    const DWORD gdiBefore = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    const DWORD userBefore = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    for (int life = 0; life < 200; ++life) oneLife();
    EXPECT_EQ(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), gdiBefore);
    EXPECT_EQ(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), userBefore);
}

}  // namespace
}  // namespace tarn
