#include "ui/splash/splash.h"

#include <gtest/gtest.h>

#include "settings/ini_file.h"
#include "settings/keys.h"
#include "settings/settings_paths.h"
#include "tests/unit_support/test_picture.h"

namespace tarn {
namespace {

// Settings beside the test program, as those of a launcher lie beside it.
class SplashTest : public testing::Test {
  protected:
    ~SplashTest() override { settings_.Remove(); }

    void ShowPicture(const std::wstring& path) {
        ASSERT_TRUE(settings_.SetValue(keys::kDisplay, keys::kSplashScreen, path));
    }
    bool Show(Splash& splash) { return splash.ShowSplash(L"jvm.dll", action_); }

    static void WaitForWindow(const Splash& splash) {
        const ULONGLONG end = GetTickCount64() + 30'000;
        while (splash.splashWindowHandle.load() == nullptr && GetTickCount64() < end) Sleep(1);
        ASSERT_NE(splash.splashWindowHandle.load(), nullptr);
    }

    IniFile settings_{*MainSettingsPath()};
    TestPicture picture_;
    OneShotAction action_;
};

TEST_F(SplashTest, ShowsNothingWithoutAPicture) {
    Splash splash;
    EXPECT_TRUE(Show(splash));
    splash.CloseSplash();
    EXPECT_EQ(splash.splashWindowHandle.load(), nullptr);
}

TEST_F(SplashTest, KeepsTheHandleOfTheWindowThatWas) {
    ShowPicture(picture_.path());
    Splash splash;
    EXPECT_TRUE(Show(splash));
    WaitForWindow(splash);
    const HWND window = splash.splashWindowHandle.load();
    EXPECT_TRUE(IsWindow(window));
    splash.CloseSplash();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(splash.splashWindowHandle.load(), window);
    splash.CloseSplash();  // a second time nothing is left to do
    EXPECT_EQ(splash.splashWindowHandle.load(), window);
}

// Mostly before the thread has a queue for the quit message.
TEST_F(SplashTest, MayBeClosedAtOnceAnyNumberOfTimes) {
    ShowPicture(picture_.path());
    for (int i = 0; i < 100; ++i) {
        Splash splash;
        EXPECT_TRUE(Show(splash));
        splash.CloseSplash();
        EXPECT_FALSE(IsWindow(splash.splashWindowHandle.load()));
    }
}

TEST_F(SplashTest, IsClosedByItsDestructor) {
    ShowPicture(picture_.path());
    HWND window = nullptr;
    {
        Splash splash;
        EXPECT_TRUE(Show(splash));
        WaitForWindow(splash);
        window = splash.splashWindowHandle.load();
    }
    EXPECT_FALSE(IsWindow(window));
}

}  // namespace
}  // namespace tarn
