// The launcher's own splash window as other programs see it.

#include "tests/support/splash_fixture.h"
#include "tests/support/test_pictures.h"

namespace tarn::test {
namespace {

using SplashWindow = SplashFixture;

TEST_F(SplashWindow, IsAPlainPopupInTheMiddleOfTheScreen) {
    ShowTestPicture(L"opaque.png");
    const auto process = Start();
    const HWND splash = WaitForSplash(*process);
    // Windows adds the first to every top-level window, and ShowWindow adds the second.
    EXPECT_EQ(GetWindowLongW(splash, GWL_STYLE) & ~(WS_CLIPSIBLINGS | WS_VISIBLE),
              static_cast<LONG>(WS_POPUP));
    EXPECT_EQ(GetWindowLongW(splash, GWL_EXSTYLE), WS_EX_TOOLWINDOW);
    EXPECT_EQ(GetWindow(splash, GW_OWNER), nullptr);
    EXPECT_EQ(WindowText(splash), L"");
    const RECT place = PlaceOf(splash);
    EXPECT_EQ(place.left, (GetSystemMetrics(SM_CXSCREEN) - kPatternSize.cx) / 2);
    EXPECT_EQ(place.top, (GetSystemMetrics(SM_CYSCREEN) - kPatternSize.cy) / 2);
    EXPECT_EQ(place.right - place.left, kPatternSize.cx);
    EXPECT_EQ(place.bottom - place.top, kPatternSize.cy);
    EndSuccessfully(*process);
}

TEST_F(SplashWindow, HasAClassWithoutShadow) {
    ShowTestPicture(L"opaque.png");
    const auto process = Start();
    const HWND splash = WaitForSplash(*process);
    EXPECT_EQ(GetClassLongPtrW(splash, GCL_STYLE),
              static_cast<ULONG_PTR>(CS_SAVEBITS | CS_DBLCLKS));
    EndSuccessfully(*process);
}

TEST_F(SplashWindow, HasAShadowOnlyWhenTheSettingIsExactlyTrue) {
    ShowTestPicture(L"opaque.png");
    for (const wchar_t* value : {L"true", L"True", L"true1", L"1", L"yes"}) {
        settings.Set(L"Display", L"Splash Screen Shadow", value);
        app.WriteScript(WaitInMain());
        const auto process = Start();
        const HWND splash = WaitForSplash(*process);
        const bool hasShadow = (GetClassLongPtrW(splash, GCL_STYLE) & CS_DROPSHADOW) != 0;
        EXPECT_EQ(hasShadow, std::wstring_view(value) == L"true") << value;
        process->Terminate();
    }
}

TEST_F(SplashWindow, HasItsOwnThread) {
    ShowTestPicture(L"opaque.png");
    const auto process = Start();
    const DWORD thread = GetWindowThreadProcessId(WaitForSplash(*process), nullptr);
    EXPECT_NE(thread, process->threadId());
    EXPECT_TRUE(MainRuns());
    for (const FakeJvmLog::Line& line : app.Log().Lines()) EXPECT_NE(line.thread, thread);
    EndSuccessfully(*process);
}

TEST_F(SplashWindow, IgnoresClicksAndKeys) {
    ShowTestPicture(L"opaque.png");
    const auto process = Start();
    const HWND splash = WaitForSplash(*process);
    for (const UINT message : {UINT{WM_LBUTTONDOWN}, UINT{WM_LBUTTONUP}, UINT{WM_LBUTTONDBLCLK}})
        PostMessageW(splash, message, 0, MAKELPARAM(10, 10));
    PostMessageW(splash, WM_KEYDOWN, VK_ESCAPE, 0);
    PostMessageW(splash, WM_KEYUP, VK_ESCAPE, 0);
    // Answered only after the posted messages.
    DWORD_PTR answer = 0;
    EXPECT_NE(SendMessageTimeoutW(splash, WM_NULL, 0, 0, SMTO_NORMAL, 10'000, &answer), 0);
    EXPECT_TRUE(MainRuns());
    EXPECT_TRUE(IsWindowVisible(splash));
    EndSuccessfully(*process);
}

TEST_F(SplashWindow, DoesNotExistWithoutAPicture) {
    for (const bool isEmpty : {true, false}) {
        if (isEmpty) ShowPicture(L"");
        if (!isEmpty) settings.Remove(L"Display", L"Splash Screen");
        settings.Set(L"Display", L"Preffer Native Splash Screen", L"Yes");
        app.WriteScript(WaitInMain() + "main = log_modules\n");
        const auto process = Start();
        EXPECT_TRUE(MainRuns());
        EXPECT_EQ(SplashesOf(*process), 0U);
        EndSuccessfully(*process);
        EXPECT_FALSE(app.Log().Has("module \"gdiplus.dll\""));
    }
}

TEST_F(SplashWindow, ReadsThePictureFromTheMainSettingsFileOnly) {
    // Neither an additive section nor another case of the value counts.
    settings.Set(L"Display+", L"Splash Screen", PicturePath(L"opaque.png"));
    const auto process = Start();
    EXPECT_TRUE(MainRuns());
    EXPECT_EQ(SplashesOf(*process), 0U);
    EndSuccessfully(*process);
}

class SplashSwitch : public SplashFixture, public testing::WithParamInterface<const wchar_t*> {};

class SuppressedSplash : public SplashSwitch {};
INSTANTIATE_TEST_SUITE_P(Arguments, SuppressedSplash,
                         testing::Values(L"-nosplash", L"/nosplash", L"a \"-nosplash\" b"));

TEST_P(SuppressedSplash, IsNotShownAndTheArgumentReachesMain) {
    ShowTestPicture(L"opaque.png");
    app.WriteScript(WaitInMain() + "main = log_modules\n");
    const auto process = Start(GetParam());
    EXPECT_TRUE(MainRuns());
    EXPECT_EQ(SplashesOf(*process), 0U);
    EndSuccessfully(*process);
    EXPECT_FALSE(app.Log().Has("module \"gdiplus.dll\""));
    EXPECT_THAT(MainArguments(), testing::HasSubstr("nosplash\""));
}

class UnsuppressedSplash : public SplashSwitch {};
INSTANTIATE_TEST_SUITE_P(Arguments, UnsuppressedSplash,
                         testing::Values(L"-NOSPLASH", L"/NoSplash", L"-nosplash=1",
                                         L"--nosplash"));

TEST_P(UnsuppressedSplash, IsShown) {
    ShowTestPicture(L"opaque.png");
    const auto process = Start(GetParam());
    EXPECT_NE(WaitForSplash(*process), nullptr);
    EndSuccessfully(*process);
}

}  // namespace
}  // namespace tarn::test
