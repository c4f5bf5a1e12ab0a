// The splash on real Java runtimes: their own library, and the launcher's own window.

#include "tests/support/real_runtime_fixture.h"
#include "tests/support/screen.h"
#include "tests/support/splash_fixture.h"
#include "tests/support/test_pictures.h"

namespace tarn::test {
namespace {

// The application's drawing, as a COLORREF.
constexpr COLORREF kDrawn = RGB(0x11, 0xEE, 0x33);

class RealSplash : public EachRuntimeFixture {
  protected:
    RealSplash() {
        settings.Runtime(L"Main Class", L"fixture.SplashApplication");
        settings.Set(L"Display", L"Splash Screen", PicturePath(L"opaque.png"));
    }

    std::unique_ptr<LaunchedProcess> StartApplication() {
        return Start(L"\"" + NewFilePath(L"open") + L"\" \"" + NewFilePath(L"end") + L'"');
    }
    void LetWindowOpen() { app.AddFile(L"open"); }
    void LetMainEnd() { app.AddFile(L"end"); }

    // The place of the picture with both splashes.
    static RECT PicturePlace() {
        const LONG left = (GetSystemMetrics(SM_CXSCREEN) - kPatternSize.cx) / 2;
        const LONG top = (GetSystemMetrics(SM_CYSCREEN) - kPatternSize.cy) / 2;
        return {left, top, left + kPatternSize.cx, top + kPatternSize.cy};
    }

    // Whether the picture is on the screen, with or without the application's drawing.
    static bool PictureIsThere(bool drawn) {
        const RECT place = PicturePlace();
        const RECT drawing{10, 20, 40, 60};
        const ScreenShot screen(place);
        for (int y = 0; y < kPatternSize.cy; ++y)
            for (int x = 0; x < kPatternSize.cx; ++x) {
                const bool inDrawing = drawn && PtInRect(&drawing, {x, y});
                const COLORREF expected = inDrawing ? kDrawn : PatternAt(x, y);
                if (screen.At(place.left + x, place.top + y) != expected) return false;
            }
        return true;
    }
};
INSTANTIATE_TEST_SUITE_P(Java, RealSplash, kAllRuntimes, RuntimeName);

TEST_P(RealSplash, OfTheRuntimeIsPassedToTheApplicationAndClosesWithItsFirstWindow) {
    settings.Set(L"Display", L"Preffer Native Splash Screen", L"Yes");
    const auto process = StartApplication();
    ASSERT_TRUE(Report().WaitFor("splash", L"drawn"));
    EXPECT_EQ(Report().One("visible"), L"true");
    EXPECT_EQ(Report().One("size"), L"160 x 120");
    EXPECT_THAT(Report().One("image"), testing::EndsWith(L"/opaque.png"));
    EXPECT_TRUE(WaitUntil([] { return PictureIsThere(true); }));
    EXPECT_TRUE(WindowsOf(process->id(), kSplashClass).empty());

    LetWindowOpen();
    ASSERT_TRUE(Report().WaitFor("window", L"open"));
    EXPECT_THAT(Report().All("visible"), testing::ElementsAre(L"true", L"false"));
    const RECT place = PicturePlace();
    EXPECT_TRUE(WaitUntil([&] {
        return ScreenShot(place).At(place.left + 15, place.top + 25) != kDrawn;
    })) << "the splash is still there";
    LetMainEnd();
    EXPECT_EQ(process->ExitCode(), 0);
}

TEST_P(RealSplash, OfTheLauncherStaysUntilTheEnd) {
    const auto process = StartApplication();
    ASSERT_TRUE(Report().WaitFor("splash", L"none"));
    EXPECT_TRUE(WaitUntil([] { return PictureIsThere(false); }));
    LetWindowOpen();
    ASSERT_TRUE(Report().WaitFor("window", L"open"));
    EXPECT_NE(WaitForWindow(*process, kSplashClass), nullptr);
    LetMainEnd();
    EXPECT_EQ(process->ExitCode(), 0);
}

// Behaviour of the launcher rather than of the runtime: one is enough.
class OneRealSplash : public RealSplash {};
INSTANTIATE_TEST_SUITE_P(Java, OneRealSplash, testing::Values("21"), RuntimeName);

TEST_P(OneRealSplash, OfTheRuntimeIsClosedWhenMainReturns) {
    settings.Runtime(L"Main Class", L"fixture.Application");
    settings.Set(L"Display", L"Preffer Native Splash Screen", L"Yes");
    EXPECT_EQ(Run(), 0);
    EXPECT_TRUE(Report().Has("end", L"main"));
}

TEST_P(OneRealSplash, OfTheRuntimeShowsNothingForAnInvalidPicture) {
    settings.Set(L"Display", L"Preffer Native Splash Screen", L"Yes");
    settings.Set(L"Display", L"Splash Screen", L"no such picture.png");
    const auto process = StartApplication();
    ASSERT_TRUE(Report().WaitFor("splash", L"none"));
    EXPECT_TRUE(WindowsOf(process->id(), kSplashClass).empty());
    LetWindowOpen();
    LetMainEnd();
    EXPECT_EQ(process->ExitCode(), 0);
}

}  // namespace
}  // namespace tarn::test
