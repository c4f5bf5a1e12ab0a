// The dialog's link in the real launcher, and the dialog with the keyboard only.

#include "tests/support/edited_launcher.h"
#include "tests/support/jre_not_found_fixture.h"
#include "tests/support/screen.h"
#include "tests/unit_support/url_handler.h"

namespace tarn::test {
namespace {

constexpr int kDialog = 201;

/// A launcher whose dialog has another address, as set with a resource editor.
class JreNotFoundLink : public JreNotFoundFixture {
  protected:
    void SetUp() override {
        ASSERT_TRUE(ReplaceControlText(app.Executable(), kDialog, kLink, L"tarn-dialog-test:get"));
        StartUntilDialog();
    }

    HWND link() const { return Child(dialog, kLink); }

    HWND Focus() const {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(process->threadId(), &info);
        return info.hwndFocus;
    }

    /// Sends a key to the window with the focus.
    void Type(WORD key) const {
        PostMessageW(Focus(), WM_KEYDOWN, key, 1);
        PostMessageW(Focus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
        SendMessageW(dialog, WM_NULL, 0, 0);
    }

    bool FocusMovesTo(int id) const {
        Type(VK_TAB);
        return WaitUntil([&] { return Focus() == Child(dialog, id); });
    }

    /// Waits until the shell has returned to the dialog, which then draws the link as visited. A
    /// key that is typed earlier is lost, because the shell may dispatch messages while it starts a
    /// program.
    bool LinkIsVisited() const {
        constexpr COLORREF kVisited = RGB(128, 0, 128);
        return WaitUntil([&] {
            RECT place{};
            GetWindowRect(link(), &place);
            const ScreenShot picture(place);
            for (LONG y = place.top; y < place.bottom; ++y)
                for (LONG x = place.left; x < place.right; ++x)
                    if (picture.At(x, y) == kVisited) return true;
            return false;
        });
    }

    void CancelAndEnd() {
        PressButton(dialog, kCancel);
        EXPECT_EQ(End(), -1);
    }

    UrlHandler handler{L"tarn-dialog-test"};
};

TEST_F(JreNotFoundLink, AReplacedAddressIsShown) {
    EXPECT_EQ(WindowText(link()), L"tarn-dialog-test:get");
    CancelAndEnd();
}

TEST_F(JreNotFoundLink, AClickOpensTheAddressAndTheDialogStays) {
    PostMessageW(link(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    PostMessageW(link(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_TRUE(handler.WasRun());
    EXPECT_TRUE(IsWindow(dialog));
    CancelAndEnd();
}

TEST_F(JreNotFoundLink, AClickBesideTheTextDoesNothing) {
    RECT client{};
    GetClientRect(link(), &client);
    const LPARAM corner = MAKELPARAM(client.right - 1, 5);
    SendMessageW(link(), WM_LBUTTONDOWN, MK_LBUTTON, corner);
    SendMessageW(link(), WM_LBUTTONUP, 0, corner);
    EXPECT_NE(Focus(), link());
    CancelAndEnd();
}

TEST_F(JreNotFoundLink, TheTabKeyReachesTheLinkAndSpaceOpensIt) {
    // OK is disabled, so Cancel has the focus first.
    EXPECT_TRUE(WaitUntil([&] { return Focus() == Child(dialog, kCancel); }));
    EXPECT_TRUE(FocusMovesTo(kPathEdit));
    EXPECT_TRUE(FocusMovesTo(kBrowse));
    EXPECT_TRUE(FocusMovesTo(kLink));
    Type(VK_SPACE);
    EXPECT_TRUE(handler.WasRun() && LinkIsVisited());
    EXPECT_TRUE(FocusMovesTo(kCancel));
    Type(VK_RETURN);
    EXPECT_EQ(End(), -1);
}

TEST_F(JreNotFoundLink, EnterOpensTheLink) {
    EXPECT_TRUE(WaitUntil([&] { return Focus() == Child(dialog, kCancel); }));
    EXPECT_TRUE(FocusMovesTo(kPathEdit) && FocusMovesTo(kBrowse) && FocusMovesTo(kLink));
    Type(VK_RETURN);
    EXPECT_TRUE(handler.WasRun());
    EXPECT_TRUE(IsWindow(dialog));
    CancelAndEnd();
}

TEST_F(JreNotFoundLink, ARuntimeCanBeChosenWithTheKeyboard) {
    const std::wstring runtime = app.AddRuntime(L"jre");
    app.WriteScript("main = exit 7");
    EXPECT_TRUE(WaitUntil([&] { return Focus() == Child(dialog, kCancel); }));
    EXPECT_TRUE(FocusMovesTo(kPathEdit) && FocusMovesTo(kBrowse));
    Type(VK_SPACE);
    HWND browser = nullptr;
    ASSERT_TRUE(WaitUntil([&] {
        for (const HWND each : WindowsOf(process->id(), L"#32770")) {
            if (each != dialog && IsWindowVisible(each)) browser = each;
        }
        return browser != nullptr;
    }));
    Select(browser, runtime);
    CloseBrowser(browser, kOk);
    EXPECT_TRUE(OkIsEnabled());
    EXPECT_TRUE(WaitUntil([&] { return Focus() == Child(dialog, kBrowse); }));
    EXPECT_TRUE(FocusMovesTo(kLink) && FocusMovesTo(kOk));
    Type(VK_RETURN);
    EXPECT_EQ(End(), 7);
}

using JreNotFoundBrokenDialog = JreNotFoundFixture;

TEST_F(JreNotFoundBrokenDialog, TheLaunchFailsWithoutAMessage) {
    ASSERT_TRUE(BreakDialog(app.Executable(), kDialog));
    app.WriteSettings(settings);
    process = app.Launch();
    EXPECT_EQ(End(), -1);
}

}  // namespace
}  // namespace tarn::test
