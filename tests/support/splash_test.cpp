#include "tests/support/splash_test.h"

#include "tests/support/test_pictures.h"

namespace tarn::test {

SplashTest::SplashTest() {
    app.WriteScript(WaitInMain());
}

void SplashTest::ShowTestPicture(std::wstring_view name) {
    ShowPicture(PicturePath(name));
}

std::string SplashTest::WaitInMain() const {
    return "main = set_event " + mainRuns_.utf8Name() + "\nmain = wait_event " +
           mainMayEnd_.utf8Name() + "\n";
}

void SplashTest::EndWell(const LaunchedProcess& process) {
    LetMainEnd();
    EXPECT_EQ(process.ExitCode(), 0);
}

HWND SplashTest::WaitForSplash(const LaunchedProcess& process) {
    const HWND splash = WaitForWindow(process, kSplashClass);
    EXPECT_NE(splash, nullptr) << "no splash";
    return splash;
}

RECT PlaceOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}

}  // namespace tarn::test
