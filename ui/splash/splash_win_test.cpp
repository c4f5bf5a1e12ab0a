#include "ui/splash/splash.h"

#include <gtest/gtest.h>

#include "settings/ini_file.h"
#include "settings/keys.h"
#include "settings/settings_paths.h"
#include "tests/unit_support/picture_fixture.h"

namespace tarn {
namespace {

// Settings beside the test program, as a launcher has them.
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
    PictureFixture picture_;
    OneShotAction action_;
};

TEST_F(SplashTest, ShowsNothingWithoutAPicture) {
    Splash splash;
    EXPECT_TRUE(Show(splash));
    splash.CloseSplash();
    EXPECT_EQ(splash.splashWindowHandle.load(), nullptr);
}

TEST_F(SplashTest, KeepsTheHandleOfTheDestroyedWindow) {
    ShowPicture(picture_.path());
    Splash splash;
    EXPECT_TRUE(Show(splash));
    WaitForWindow(splash);
    const HWND window = splash.splashWindowHandle.load();
    EXPECT_TRUE(IsWindow(window));
    splash.CloseSplash();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(splash.splashWindowHandle.load(), window);
    splash.CloseSplash();  // the second call does nothing
    EXPECT_EQ(splash.splashWindowHandle.load(), window);
}

// In most rounds the thread has no queue for the quit message yet.
TEST_F(SplashTest, MayBeClosedImmediatelyAnyNumberOfTimes) {
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
