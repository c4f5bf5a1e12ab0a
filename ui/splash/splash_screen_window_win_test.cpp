#include "ui/splash/splash_screen_window.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/unit_support/test_picture.h"

namespace tarn {
namespace {

class SplashScreenWindowTest : public testing::Test {
  protected:
    ~SplashScreenWindowTest() override { window_.Destroy(); }

    TestPicture picture_;
    SplashScreenWindow window_;
};

TEST_F(SplashScreenWindowTest, IsAPlainHiddenPopupWithoutTaskbarButton) {
    const HWND handle = window_.Create(picture_.path(), false);
    ASSERT_NE(handle, nullptr);
    wchar_t name[64];
    GetClassNameW(handle, name, 64);
    EXPECT_STREQ(name, L"SplashScreenWindow");
    EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(handle, GWL_STYLE)) &
                  ~static_cast<DWORD>(WS_CLIPSIBLINGS),
              WS_POPUP);
    EXPECT_EQ(GetWindowLongW(handle, GWL_EXSTYLE), WS_EX_TOOLWINDOW);
    EXPECT_EQ(GetWindow(handle, GW_OWNER), nullptr);
    EXPECT_EQ(GetMenu(handle), nullptr);
    EXPECT_EQ(GetWindowTextLengthW(handle), 0);
    EXPECT_EQ(reinterpret_cast<HMODULE>(GetWindowLongPtrW(handle, GWLP_HINSTANCE)),
              GetModuleHandleW(nullptr));
}

TEST_F(SplashScreenWindowTest, IsAsLargeAsThePictureInTheMiddleOfTheScreen) {
    const HWND handle = window_.Create(picture_.path(), false);
    RECT place{};
    ASSERT_TRUE(GetWindowRect(handle, &place));
    EXPECT_EQ(place.left, (GetSystemMetrics(SM_CXSCREEN) - TestPicture::kWidth) / 2);
    EXPECT_EQ(place.top, (GetSystemMetrics(SM_CYSCREEN) - TestPicture::kHeight) / 2);
    EXPECT_EQ(place.right - place.left, TestPicture::kWidth);
    EXPECT_EQ(place.bottom - place.top, TestPicture::kHeight);
}

TEST_F(SplashScreenWindowTest, HasNoExtentWithoutAPicture) {
    const HWND handle = window_.Create(L"no such picture", false);
    ASSERT_NE(handle, nullptr);
    RECT place{};
    ASSERT_TRUE(GetWindowRect(handle, &place));
    EXPECT_EQ(place.left, GetSystemMetrics(SM_CXSCREEN) / 2);
    EXPECT_EQ(place.top, GetSystemMetrics(SM_CYSCREEN) / 2);
    EXPECT_EQ(place.right, place.left);
    EXPECT_EQ(place.bottom, place.top);
}

TEST_F(SplashScreenWindowTest, ClaimsItsBackgroundErased) {
    const HWND handle = window_.Create(picture_.path(), false);
    EXPECT_EQ(SendMessageW(handle, WM_ERASEBKGND, 0, 0), 1);
}

TEST_F(SplashScreenWindowTest, PaintingLeavesNothingToPaint) {
    const HWND handle = window_.Create(picture_.path(), false);
    ShowWindow(handle, SW_SHOWNORMAL);
    InvalidateRect(handle, nullptr, FALSE);
    EXPECT_EQ(SendMessageW(handle, WM_PAINT, 0, 0), 0);
    EXPECT_FALSE(GetUpdateRect(handle, nullptr, FALSE));
}

TEST_F(SplashScreenWindowTest, TwoObjectsShareTheClassAndNothingElse) {
    SplashScreenWindow other;
    const HWND first = window_.Create(picture_.path(), false);
    const HWND second = other.Create(picture_.path(), false);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(GetWindowLongPtrW(first, GWLP_WNDPROC), GetWindowLongPtrW(second, GWLP_WNDPROC));
    other.Destroy();
    EXPECT_FALSE(IsWindow(second));
    EXPECT_TRUE(IsWindow(first));
}

class LastWords : public SplashScreenWindow {
  public:
    void OnFinalMessage(HWND window) override { finished_.push_back(window); }
    std::vector<HWND> finished_;
};

TEST(SplashScreenWindowEndTest, HearsOfItsLastMessageOnce) {
    const TestPicture picture;
    LastWords window;
    const HWND handle = window.Create(picture.path(), false);
    window.Destroy();
    EXPECT_FALSE(IsWindow(handle));
    window.Destroy();
    EXPECT_EQ(window.finished_, std::vector<HWND>{handle});
}

}  // namespace
}  // namespace tarn
