#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/hook_log.h"
#include "tests/support/installed_application.h"

namespace tarn::test {

/// What can be seen of a launch from outside, each with a name that a reader understands. A launch
/// whose facts are those of an undisturbed one went on as ever.
using Facts = std::vector<std::pair<std::string, std::string>>;

/// A kind of launch, which can be repeated with calls failing.
class Scenario {
  public:
    Scenario();
    virtual ~Scenario();
    Scenario(const Scenario&) = delete;
    Scenario& operator=(const Scenario&) = delete;

    /// One launch from its start to its end; `failures` is what HOOK_FAIL says.
    Facts Run(const std::wstring& failures);

    /// The calls that the launch made.
    std::vector<HookedCall> Calls() const { return ReadHookLog(HookLogFile(app)); }

    /// The text without what differs between runs: the test's folders, process and product.
    std::string Normalized(const std::string& text) const;

    /// What the application itself ends with when it runs.
    virtual std::string ApplicationCode() const { return "0"; }

  protected:
    /// Lays out what a launch changes; the application's own files stay from launch to launch.
    virtual void Prepare() {}
    /// Starts the launch and sees it through, with `StartHooked` of the application.
    virtual std::unique_ptr<LaunchedProcess> Launch(const std::wstring& failures);
    /// Asked again and again while the launch goes on.
    virtual void Look(const LaunchedProcess&) {}
    /// Answers a dialog that has come, by Cancel unless a scenario knows better; message boxes are
    /// answered and noted anyway.
    virtual void Answer(const LaunchedProcess&, HWND dialog, const std::wstring& title);
    /// What else is to be seen, after the end.
    virtual void AddFacts(Facts&) {}

    /// A fact of the scripted JVM's log: whether `main` was called, and with what.
    std::string MainCall() const;

    InstalledApplication app;
    SettingsText settings;
    std::wstring argumentText;
    /// What `Normalized` replaces, in this order.
    std::vector<std::pair<std::wstring, std::wstring>> replacements;

  private:
    std::string SeeThrough(const LaunchedProcess& process);
    /// The options of the first JVM that was made.
    std::string FirstOptions() const;
    void LookAtWindows(const LaunchedProcess& process);

    std::vector<std::string> shown_;
    std::vector<std::pair<HWND, std::chrono::steady_clock::time_point>> answered_;
};

/// For `NamedScenario::most`: no sample.
inline constexpr std::size_t kEveryCall = static_cast<std::size_t>(-1);

/// A scenario of the failing-calls test.
struct NamedScenario {
    const char* name;
    const char* title;
    std::unique_ptr<Scenario> (*make)();
    std::size_t most;  ///< calls in the test command's sample; launches with windows take longer
};

std::vector<NamedScenario> PlainScenarios();
std::vector<NamedScenario> SplashScenarios();
std::vector<NamedScenario> DialogScenarios();
std::vector<NamedScenario> InstanceScenarios();

template <typename Kind>
std::unique_ptr<Scenario> Make() {
    return std::make_unique<Kind>();
}

}  // namespace tarn::test
