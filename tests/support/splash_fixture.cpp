#include "tests/support/splash_fixture.h"

#include "tests/support/test_pictures.h"

namespace tarn::test {

SplashFixture::SplashFixture() {
    app.WriteScript(WaitInMain());
}

void SplashFixture::ShowTestPicture(std::wstring_view name) {
    ShowPicture(PicturePath(name));
}

std::string SplashFixture::WaitInMain() const {
    return "main = set_event " + mainRuns_.utf8Name() + "\nmain = wait_event " +
           mainMayEnd_.utf8Name() + "\n";
}

void SplashFixture::EndSuccessfully(const LaunchedProcess& process) {
    LetMainEnd();
    EXPECT_EQ(process.ExitCode(), 0);
}

HWND SplashFixture::WaitForSplash(const LaunchedProcess& process) {
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
