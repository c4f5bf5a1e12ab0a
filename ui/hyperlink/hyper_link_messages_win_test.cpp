#include "ui/hyperlink/hyper_link.h"

#include <commctrl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit_support/hyper_link_fixture.h"
#include "tests/unit_support/url_handler.h"

namespace tarn {
namespace {

using HyperLinkTest = HyperLinkFixture;

using testing::ElementsAre;
using testing::IsEmpty;

POINT MiddleOf(const PixelRect& rect) {
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

LPARAM At(POINT point) {
    return MAKELPARAM(point.x, point.y);
}

void Click(HWND control, POINT point) {
    SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, At(point));
    SendMessageW(control, WM_LBUTTONUP, 0, At(point));
}

TEST_F(HyperLinkTest, TheCursorIsAHandOverTheLinkOnly) {
    const HWND control = AttachTo(L"Getting <A>Java</A>");
    const HCURSOR hand = LoadCursorW(nullptr, IDC_HAND);
    const auto cursorAt = [&](POINT point) {
        ClientToScreen(control, &point);
        SetCursorPos(point.x, point.y);
        SetCursor(LoadCursorW(nullptr, IDC_WAIT));
        SendMessageW(control, WM_SETCURSOR, reinterpret_cast<WPARAM>(control),
                     MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return GetCursor();
    };
    EXPECT_EQ(cursorAt(MiddleOf(link_.linkRect())), hand);
    EXPECT_NE(cursorAt({2, 2}), hand);
    EXPECT_NE(cursorAt({link_.linkRect().right, 2}), hand);
    EXPECT_NE(cursorAt({kLinkWidth - 2, kLinkHeight - 2}), hand);
}

TEST_F(HyperLinkTest, EnteringAndLeavingTheLinkRepaints) {
    const HWND control = AttachTo(kAddress);
    const auto repaints = [&](UINT message, POINT point) {
        ValidateRect(control, nullptr);
        SendMessageW(control, message, 0, At(point));
        return GetUpdateRect(control, nullptr, FALSE) != FALSE;
    };
    const POINT over = MiddleOf(link_.linkRect());
    EXPECT_TRUE(repaints(WM_MOUSEMOVE, over));
    EXPECT_FALSE(repaints(WM_MOUSEMOVE, over));
    EXPECT_TRUE(repaints(WM_MOUSELEAVE, {}));
    EXPECT_FALSE(repaints(WM_MOUSEMOVE, {kLinkWidth - 1, kLinkHeight - 1}));
    EXPECT_TRUE(repaints(WM_MOUSEMOVE, over));
}

TEST_F(HyperLinkTest, AClickInsideTheLinkActivatesAndSetsTheFocus) {
    link_.SetMode(HyperLink::Mode::CommandParent);
    const HWND control = AttachTo(kAddress);
    const POINT inside = MiddleOf(link_.linkRect());
    SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, At(inside));
    EXPECT_EQ(GetCapture(), control);
    EXPECT_EQ(GetFocus(), control);
    EXPECT_THAT(parent_.commands(), IsEmpty());
    SendMessageW(control, WM_LBUTTONUP, 0, At(inside));
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_THAT(parent_.commands(), ElementsAre(MAKEWPARAM(kLinkId, BN_CLICKED)));
}

TEST_F(HyperLinkTest, AButtonReleasedOutsideDoesNotActivate) {
    link_.SetMode(HyperLink::Mode::CommandParent);
    const HWND control = AttachTo(kAddress);
    SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, At(MiddleOf(link_.linkRect())));
    SendMessageW(control, WM_LBUTTONUP, 0, At({-5, -5}));
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_THAT(parent_.commands(), IsEmpty());
}

TEST_F(HyperLinkTest, AButtonPressedOutsideDoesNothing) {
    link_.SetMode(HyperLink::Mode::CommandParent);
    const HWND control = AttachTo(L"Getting <A>Java</A>");
    Click(control, {2, 2});
    EXPECT_NE(GetCapture(), control);
    SendMessageW(control, WM_LBUTTONUP, 0, At(MiddleOf(link_.linkRect())));
    SendMessageW(control, WM_LBUTTONDBLCLK, MK_LBUTTON, At({2, 2}));
    EXPECT_THAT(parent_.commands(), IsEmpty());
}

TEST_F(HyperLinkTest, EnterAndSpaceActivate) {
    link_.SetMode(HyperLink::Mode::CommandParent);
    const HWND control = AttachTo(kAddress);
    SendMessageW(control, WM_CHAR, L'x', 0);
    SendMessageW(control, WM_CHAR, VK_ESCAPE, 0);
    EXPECT_THAT(parent_.commands(), IsEmpty());
    SendMessageW(control, WM_CHAR, L' ', 0);
    SendMessageW(control, WM_CHAR, L'\r', 0);
    EXPECT_EQ(parent_.commands().size(), 2u);
}

TEST_F(HyperLinkTest, AsksForCharactersAndForTheEnterKey) {
    const HWND control = AttachTo(kAddress);
    EXPECT_EQ(SendMessageW(control, WM_GETDLGCODE, 0, 0), DLGC_WANTCHARS);
    MSG key{};
    key.hwnd = control;
    key.message = WM_KEYDOWN;
    key.wParam = VK_TAB;
    EXPECT_EQ(SendMessageW(control, WM_GETDLGCODE, VK_TAB, reinterpret_cast<LPARAM>(&key)),
              DLGC_WANTCHARS);
    key.wParam = VK_RETURN;
    EXPECT_EQ(SendMessageW(control, WM_GETDLGCODE, VK_RETURN, reinterpret_cast<LPARAM>(&key)),
              DLGC_WANTCHARS | DLGC_WANTMESSAGE);
}

// Wine keeps no UI state, so the test returns what Windows would.
LRESULT gUiState = 0;
WNDPROC gStaticProc = nullptr;

LRESULT CALLBACK AnswerUiState(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_QUERYUISTATE) return gUiState;
    return CallWindowProcW(gStaticProc, window, message, wParam, lParam);
}

TEST_F(HyperLinkTest, TheFocusRectangleFollowsTheFocusAndTheUiState) {
    const HWND control = parent_.AddStatic(kAddress, SS_LEFT);
    gStaticProc = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AnswerUiState)));
    ASSERT_TRUE(link_.Attach(control));
    const auto hasFrame = [&] {
        const PixelRect link = link_.linkRect();
        // The dots of the frame's right edge, where no letter is.
        return PictureOf(control).CountOtherThan(
                   kParentColor, {link.right - 1, link.top, link.right, link.bottom - 3}) > 0;
    };
    const auto repaints = [&](WORD action, LRESULT state) {
        gUiState = state;
        ValidateRect(control, nullptr);
        SendMessageW(control, WM_UPDATEUISTATE, MAKEWPARAM(action, UISF_HIDEFOCUS), 0);
        return GetUpdateRect(control, nullptr, FALSE) != FALSE;
    };
    SetFocus(parent_.window());
    gUiState = 0;
    EXPECT_FALSE(hasFrame());
    SetFocus(control);
    EXPECT_TRUE(hasFrame());

    EXPECT_TRUE(repaints(UIS_SET, UISF_HIDEFOCUS));
    EXPECT_FALSE(hasFrame());
    EXPECT_TRUE(repaints(UIS_CLEAR, UISF_HIDEACCEL));
    EXPECT_TRUE(hasFrame());

    ValidateRect(control, nullptr);
    SetFocus(parent_.window());
    EXPECT_TRUE(GetUpdateRect(control, nullptr, FALSE));
    EXPECT_FALSE(hasFrame());
}

TEST_F(HyperLinkTest, TheParentIsNotifiedInItsMode) {
    link_.SetMode(HyperLink::Mode::NotifyParent);
    const HWND control = AttachTo(kAddress);
    Click(control, MiddleOf(link_.linkRect()));
    ASSERT_EQ(parent_.notifications().size(), 1u);
    EXPECT_EQ(parent_.notifications()[0].hwndFrom, control);
    EXPECT_EQ(parent_.notifications()[0].idFrom, static_cast<UINT_PTR>(kLinkId));
    EXPECT_EQ(parent_.notifications()[0].code, static_cast<UINT>(NM_CLICK));
    EXPECT_THAT(parent_.commands(), IsEmpty());
    EXPECT_FALSE(link_.visited());
}

TEST_F(HyperLinkTest, InTheParentsModesTheLabelIsNotAnAddress) {
    link_.SetMode(HyperLink::Mode::CommandParent);
    AttachTo(L"Details");
    EXPECT_EQ(link_.url(), L"");
    EXPECT_EQ(ContentsOf(link_.toolTip()).count, 1);
}

TEST_F(HyperLinkTest, AParentMayDestroyTheLinkDuringTheNotification) {
    link_.SetMode(HyperLink::Mode::CommandParent);
    const HWND control = AttachTo(kAddress);
    parent_.DestroyOnCommand(control);
    SendMessageW(control, WM_CHAR, L' ', 0);
    EXPECT_FALSE(IsWindow(control));
    EXPECT_FALSE(link_.attached());
}

TEST_F(HyperLinkTest, AClickOpensTheAddressAndTheLinkIsVisitedFromThenOn) {
    const UrlHandler handler(L"tarn-link-test");
    link_.SetUrl(L"tarn-link-test:page");
    const HWND control = AttachTo(L"Click here");
    EXPECT_FALSE(link_.visited());
    Click(control, MiddleOf(link_.linkRect()));
    EXPECT_TRUE(handler.WasRun());
    EXPECT_TRUE(link_.visited());
    SetFocus(parent_.window());  // the focus rectangle is drawn over the underline
    EXPECT_TRUE(PictureOf(control).HasUnderline(link_.linkRect(), kPurple));
    EXPECT_THAT(parent_.commands(), IsEmpty());
    EXPECT_THAT(parent_.notifications(), IsEmpty());
}

TEST_F(HyperLinkTest, SpaceOpensTheAddressAsAClickDoes) {
    const UrlHandler handler(L"tarn-link-test");
    link_.SetUrl(L"tarn-link-test:page");
    const HWND control = AttachTo(L"Click here");
    SetFocus(control);
    SendMessageW(control, WM_CHAR, L' ', 0);
    EXPECT_TRUE(handler.WasRun());
    EXPECT_TRUE(link_.visited());
}

TEST_F(HyperLinkTest, AnAddressThatNothingOpensLeavesTheLinkUnvisited) {
    link_.SetUrl(L"Z:\\no\\such\\file.tarn");
    const HWND control = AttachTo(L"Click here");
    Click(control, MiddleOf(link_.linkRect()));
    EXPECT_FALSE(link_.visited());
    SetFocus(parent_.window());
    EXPECT_TRUE(PictureOf(control).HasUnderline(link_.linkRect(), kBlue));
}

}  // namespace
}  // namespace tarn
