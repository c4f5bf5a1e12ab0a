#pragma once

#include <string_view>

#include "tests/support/fake_jvm_fixture.h"
#include "tests/support/named_event.h"

namespace tarn::test {

inline constexpr wchar_t kSplashClass[] = L"SplashScreenWindow";

/// A test of the splash on the scripted jvm.dll, whose `main` tells that it runs and waits until
/// the test lets it go on.
class SplashFixture : public FakeJvmFixture {
  protected:
    SplashFixture();
    ~SplashFixture() override { LetMainEnd(); }

    /// The setting "Splash Screen".
    void ShowPicture(std::wstring_view path) { settings.Set(L"Display", L"Splash Screen", path); }
    /// One of the tests' pictures.
    void ShowTestPicture(std::wstring_view name);

    /// The script's lines that make `main` wait; a test that writes a script of its own may put
    /// them behind what it wants.
    std::string WaitInMain() const;

    bool MainRuns() const { return mainRuns_.Wait(); }
    void LetMainEnd() { mainMayEnd_.Set(); }

    /// Lets `main` return and expects the launch to end as a good one.
    void EndWell(const LaunchedProcess& process);

    /// Waits until the splash is visible; null, and a failed test, when it does not come.
    HWND WaitForSplash(const LaunchedProcess& process);
    /// How many splash windows the process has, visible or not.
    static std::size_t SplashesOf(const LaunchedProcess& process) {
        return WindowsOf(process.id(), kSplashClass).size();
    }

  private:
    NamedEvent mainRuns_;
    NamedEvent mainMayEnd_;
};

/// Where the window is on the screen.
RECT PlaceOf(HWND window);

}  // namespace tarn::test
