// Launches that show a box or a dialog.

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/failing_calls/scenario.h"
#include "tests/support/jre_not_found_fixture.h"
#include "tests/support/text.h"

namespace tarn::test {

namespace {

class LibraryNotLoaded : public Scenario {
  public:
    LibraryNotLoaded() { app.AddFile(L"jre\\bin\\server\\jvm.dll", "no library"); }
};

class NoClassPath : public Scenario {
  public:
    NoClassPath() { settings.Remove(L"Class Path", L"Class Path"); }
};

class JavaException : public Scenario {
  public:
    JavaException() {
        settings.Application(L"Failure Check", L"Yes");
        app.WriteScript("main = throw java/lang/IllegalStateException: boom\ntrace = boom at");
    }

  protected:
    void Answer(const LaunchedProcess& process, HWND dialog, const std::wstring& title) override {
        if (title != L"Java Exception") return Scenario::Answer(process, dialog, title);
        PressButton(dialog, IDOK);
    }
};

/// The dialog "JRE Not Found", cancelled.
class JreCancelled : public Scenario {
  public:
    JreCancelled() {
        settings.Remove(L"Java Runtime Environment", L"JRE Path");
        settings.Runtime(L"JVM Source", L"none").Runtime(L"Maximum Version", L"any");
    }
};

/// The dialog "JRE Not Found", in which a runtime is browsed for, confirmed and remembered.
class JreBrowsed : public Scenario {
  public:
    JreBrowsed() {
        settings.Remove(L"Java Runtime Environment", L"JRE Path");
        settings.Runtime(L"JVM Source", L"none").Runtime(L"Maximum Version", L"any");
        settings.Set(L"Product Information", L"Product Name", product_);
        settings.Set(L"Product Information", L"Product Code", L"Code");
        replacements.emplace_back(product_, L"PRODUCT");
    }
    ~JreBrowsed() override { RemoveFolder(withoutAppData_); }

  protected:
    void Prepare() override {
        RemoveFolder(withoutAppData_);
        CreateFolders(app.AppDataFolder());
        isBrowsePressed_ = false;
        quietPolls_ = 0;
        lastCalls_ = 0;
        browserOpened_ = false;
    }

    void Answer(const LaunchedProcess& process, HWND window, const std::wstring& title) override {
        if (title != L"JRE Not Found") {
            browserOpened_ = true;
            PickRuntime(process, window);
            return;
        }
        if (!isBrowsePressed_) PressButton(window, kBrowse);
        isBrowsePressed_ = true;
        if (!IsWindowEnabled(window) || !BrowserIsOver()) return;
        const bool usable = IsWindowEnabled(Child(window, kOk)) != FALSE;
        PressButton(window, usable ? kOk : kCancel);
    }

    void AddFacts(Facts& facts) override {
        const std::wstring file = app.AppDataFolder() + L'\\' + product_ + L"\\Code\\sample.ini";
        facts.emplace_back("remembered", ReadFileBytes(file).empty() ? "nothing" : "the folder");
    }

  private:
    /// Whether the folder browser has been closed, or will not open because a call that it needs
    /// has failed: the launcher, whose dialog is enabled, then only handles messages during several
    /// polls, which are one second apart.
    bool BrowserIsOver() {
        if (browserOpened_) return true;
        const auto all = Calls();
        const auto calls = std::count_if(all.begin(), all.end(), [](const HookedCall& each) {
            return each.function != "CallWindowProcW" && each.function != "DefWindowProcW" &&
                   each.function != "GetWindowLongPtrW";
        });
        quietPolls_ = calls == lastCalls_ ? quietPolls_ + 1 : 1;
        lastCalls_ = calls;
        constexpr int kMostQuietPolls = 4;
        return quietPolls_ > kMostQuietPolls;
    }

    void PickRuntime(const LaunchedProcess& process, HWND browser) {
        constexpr std::chrono::seconds kBrowserTimeLimit{5};
        if (!SelectInBrowser(process.id(), browser, app.Path(L"jre"), kBrowserTimeLimit)) return;
        WaitUntil([&] { return IsWindowEnabled(Child(browser, kOk)) != FALSE; }, kBrowserTimeLimit);
        PressButton(browser, kOk);
    }

    const std::wstring product_ = L"TarnFaults" + std::to_wstring(GetCurrentProcessId());
    // The path of the per-user file when APPDATA is not set.
    const std::wstring withoutAppData_ = app.directory.substr(0, 2) + L'\\' + product_;
    bool isBrowsePressed_ = false;
    int quietPolls_ = 0;
    std::ptrdiff_t lastCalls_ = 0;
    bool browserOpened_ = false;
};

}  // namespace

std::vector<NamedScenario> DialogScenarios() {
    return {
        {"library_not_loaded", "An error box: a library that cannot be loaded",
         Make<LibraryNotLoaded>, 10, 3},
        {"no_class_path", "An error box before a launch that goes on", Make<NoClassPath>, 10, 3},
        {"java_exception", "The dialog \"Java Exception\", ignored", Make<JavaException>, 30, 3},
        {"jre_cancelled", "The dialog \"JRE Not Found\", cancelled", Make<JreCancelled>, 30, 3},
        {"jre_browsed", "The dialog \"JRE Not Found\", a folder browsed for", Make<JreBrowsed>, 15,
         0, false},
    };
}

}  // namespace tarn::test
