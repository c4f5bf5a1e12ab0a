#include "ui/splash/splash_screen_window.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/unit_support/picture_fixture.h"

namespace tarn {
namespace {

struct Received {
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

LRESULT CALLBACK Record(void* object, UINT message, WPARAM wParam, LPARAM lParam) {
    *static_cast<Received*>(object) = {message, wParam, lParam};
    return 0x123456789;
}

HWND AnyWindow() {
    return reinterpret_cast<HWND>(std::intptr_t{0x10001});
}

TEST(WindowThunkTest, PassesEachMessageToItsOwnObject) {
    Received first;
    Received second;
    WindowThunk firstThunk;
    WindowThunk secondThunk;
    ASSERT_TRUE(firstThunk.Make(&first, Record));
    ASSERT_TRUE(secondThunk.Make(&second, Record));

    EXPECT_EQ(firstThunk.procedure()(AnyWindow(), WM_APP, ~WPARAM{0}, -7), 0x123456789);
    EXPECT_EQ(secondThunk.procedure()(AnyWindow(), WM_APP + 1, 3, 4), 0x123456789);

    EXPECT_EQ(first.message, static_cast<UINT>(WM_APP));
    EXPECT_EQ(first.wParam, ~WPARAM{0});
    EXPECT_EQ(first.lParam, -7);
    EXPECT_EQ(second.message, static_cast<UINT>(WM_APP + 1));
}

TEST(WindowThunkTest, IsNeverWritableOnceItCanRun) {
    Received object;
    WindowThunk thunk;
    ASSERT_TRUE(thunk.Make(&object, Record));
    MEMORY_BASIC_INFORMATION memory{};
    ASSERT_NE(VirtualQuery(reinterpret_cast<void*>(thunk.procedure()), &memory, sizeof(memory)),
              0U);
    EXPECT_EQ(memory.Protect, static_cast<DWORD>(PAGE_EXECUTE_READ));
}

TEST(WindowThunkTest, IsGeneratedOnce) {
    Received object;
    WindowThunk thunk;
    EXPECT_EQ(thunk.procedure(), nullptr);
    ASSERT_TRUE(thunk.Make(&object, Record));
    const WNDPROC made = thunk.procedure();
    ASSERT_TRUE(thunk.Make(&object, Record));
    EXPECT_EQ(thunk.procedure(), made);
}

TEST(WindowThunkTest, ReleasesItsMemory) {
    Received object;
    void* code = nullptr;
    {
        WindowThunk thunk;
        ASSERT_TRUE(thunk.Make(&object, Record));
        code = reinterpret_cast<void*>(thunk.procedure());
    }
    MEMORY_BASIC_INFORMATION memory{};
    ASSERT_NE(VirtualQuery(code, &memory, sizeof(memory)), 0U);
    EXPECT_NE(memory.Protect, static_cast<DWORD>(PAGE_EXECUTE_READ));
}

class SplashScreenWindowTest : public testing::Test {
  protected:
    ~SplashScreenWindowTest() override { window_.Destroy(); }

    PictureFixture picture_;
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

TEST_F(SplashScreenWindowTest, HasThePicturesSizeInTheMiddleOfTheScreen) {
    const HWND handle = window_.Create(picture_.path(), false);
    RECT place{};
    ASSERT_TRUE(GetWindowRect(handle, &place));
    EXPECT_EQ(place.left, (GetSystemMetrics(SM_CXSCREEN) - PictureFixture::kWidth) / 2);
    EXPECT_EQ(place.top, (GetSystemMetrics(SM_CYSCREEN) - PictureFixture::kHeight) / 2);
    EXPECT_EQ(place.right - place.left, PictureFixture::kWidth);
    EXPECT_EQ(place.bottom - place.top, PictureFixture::kHeight);
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

TEST_F(SplashScreenWindowTest, ReportsItsBackgroundAsErased) {
    const HWND handle = window_.Create(picture_.path(), false);
    EXPECT_EQ(SendMessageW(handle, WM_ERASEBKGND, 0, 0), 1);
}

TEST_F(SplashScreenWindowTest, PaintingValidatesTheWindow) {
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

class FinalMessageRecorder : public SplashScreenWindow {
  public:
    void OnFinalMessage(HWND window) override { finished_.push_back(window); }
    std::vector<HWND> finished_;
};

TEST(SplashScreenWindowEndTest, ReceivesItsFinalMessageOnce) {
    const PictureFixture picture;
    FinalMessageRecorder window;
    const HWND handle = window.Create(picture.path(), false);
    window.Destroy();
    EXPECT_FALSE(IsWindow(handle));
    window.Destroy();
    EXPECT_EQ(window.finished_, std::vector<HWND>{handle});
}

}  // namespace
}  // namespace tarn
