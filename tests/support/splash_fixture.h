#pragma once

#include <string_view>

#include "tests/support/fake_jvm_fixture.h"
#include "tests/support/named_event.h"

namespace tarn::test {

inline constexpr wchar_t kSplashClass[] = L"SplashScreenWindow";

/// A test of the splash with the scripted jvm.dll, whose `main` sets an event and then waits for
/// the test.
class SplashFixture : public FakeJvmFixture {
  protected:
    SplashFixture();
    ~SplashFixture() override { LetMainEnd(); }

    /// The setting "Splash Screen".
    void ShowPicture(std::wstring_view path) { settings.Set(L"Display", L"Splash Screen", path); }
    /// One of the tests' pictures.
    void ShowTestPicture(std::wstring_view name);

    /// The lines of the script that make `main` wait; a test with a script of its own can append
    /// them.
    std::string WaitInMain() const;

    bool MainRuns() const { return mainRuns_.Wait(); }
    void LetMainEnd() { mainMayEnd_.Set(); }

    /// Lets `main` return and expects the launch to end with exit code 0.
    void EndSuccessfully(const LaunchedProcess& process);

    /// Waits until the splash is visible; returns null and fails the test when it does not appear.
    HWND WaitForSplash(const LaunchedProcess& process);
    /// The number of splash windows of the process, visible or not.
    static std::size_t SplashesOf(const LaunchedProcess& process) {
        return WindowsOf(process.id(), kSplashClass).size();
    }

  private:
    NamedEvent mainRuns_;
    NamedEvent mainMayEnd_;
};

/// The window's rectangle in screen coordinates.
RECT PlaceOf(HWND window);

}  // namespace tarn::test
