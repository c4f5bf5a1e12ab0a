#include <gtest/gtest.h>

#include <algorithm>

#include "tests/failing_calls/scenario.h"
#include "tests/support/named_event.h"
#include "tests/support/paths.h"
#include "tests/support/splash_fixture.h"
#include "tests/support/test_pictures.h"

namespace tarn::test {

namespace {

/// The launcher's own splash. `main` ends when the splash is shown or cannot be.
class OwnSplash : public Scenario {
  public:
    OwnSplash() {
        settings.Set(L"Display", L"Splash Screen", PicturePath(L"opaque.png"));
        settings.Set(L"Display", L"Splash Screen Shadow", L"true");
    }

  protected:
    void Prepare() override {
        mainMayEnd_ = std::make_unique<NamedEvent>();
        app.WriteScript("main = wait_event " + mainMayEnd_->utf8Name());
        splash_ = "none";
    }

    void Poll(const LaunchedProcess& process) override {
        if (mainMayEnd_->IsSet() || MainCall() == "does not run" || !SplashIsSettled()) return;
        const std::vector<HWND> windows = WindowsOf(process.id(), kSplashClass);
        if (!windows.empty()) {
            const RECT place = PlaceOf(windows[0]);
            splash_ = IsWindowVisible(windows[0]) ? "visible" : "hidden";
            splash_ += ' ' + std::to_string(place.right - place.left) + " x " +
                       std::to_string(place.bottom - place.top);
        }
        mainMayEnd_->Set();
    }

    void AddFacts(Facts& facts) override {
        // A launch that fails closes the splash at any moment.
        if (MainCall() == "does not run") return;
        facts.emplace_back("splash", splash_);
        const auto calls = Calls();
        const auto painted = std::count_if(calls.begin(), calls.end(), [](const HookedCall& each) {
            return each.function == "BitBlt" && !each.failed;
        });
        facts.emplace_back("picture", painted != 0 ? "painted" : "not painted");
    }

  private:
    /// Whether the splash thread waits for messages, or there is no splash.
    bool SplashIsSettled() const {
        unsigned threads = 0;
        bool failed = false;
        for (const HookedCall& each : Calls()) {
            if (each.function == "GetMessageW") return true;
            if (each.function != "CreateThread") continue;
            failed |= ++threads == 1 && each.failed;
        }
        // The splash thread is created first, then the Java thread.
        return threads < 2 || failed;
    }

    std::unique_ptr<NamedEvent> mainMayEnd_;
    std::string splash_;
};

class NativeSplash : public Scenario {
  public:
    NativeSplash() {
        settings.Set(L"Display", L"Splash Screen", L"picture.png");
        settings.Set(L"Display", L"Preffer Native Splash Screen", L"Yes");
        for (const wchar_t* name : {L"full\\splashscreen.dll", L"java.dll"}) {
            const std::wstring from = GetPaths().fakeSplashes + L'\\' + name;
            const std::wstring file = from.substr(from.rfind(L'\\') + 1);
            CopyFileW(from.c_str(), app.Path(L"jre\\bin\\" + file).c_str(), FALSE);
        }
    }

  protected:
    void AddFacts(Facts& facts) override {
        std::string calls;
        for (const std::string& text : app.Log().Texts()) {
            if (text.starts_with("Splash"))
                calls += (calls.empty() ? "" : " ") + text.substr(0, text.find('('));
        }
        facts.emplace_back("calls of the splash library", calls.empty() ? "none" : calls);
    }
};

}  // namespace

std::vector<NamedScenario> SplashScenarios() {
    return {
        {"own_splash", "The own splash", Make<OwnSplash>, 40, 6},
        {"native_splash", "The runtime's splash", Make<NativeSplash>, 20, 4},
    };
}

}  // namespace tarn::test
