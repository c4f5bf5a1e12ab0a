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

/// What a launch does as seen from outside, as names and values. A launch with the facts of an
/// undisturbed one was not affected by the failed call.
using Facts = std::vector<std::pair<std::string, std::string>>;

/// A kind of launch, which can be repeated with calls failing.
class Scenario {
  public:
    Scenario();
    virtual ~Scenario();
    Scenario(const Scenario&) = delete;
    Scenario& operator=(const Scenario&) = delete;

    /// Runs one launch to its end; `failures` is the value of HOOK_FAIL.
    Facts Run(const std::wstring& failures);

    /// The calls of the launch.
    std::vector<HookedCall> Calls() const { return ReadHookLog(HookLogFile(app)); }

    /// Replaces what differs between runs: the test's folders, process and product.
    std::string Normalized(const std::string& text) const;

    /// The exit code of the application itself.
    virtual std::string ApplicationCode() const { return "0"; }

  protected:
    /// Prepares what a launch changes; the application's own files remain for all launches.
    virtual void Prepare() {}
    /// Starts the launch with `StartHooked`.
    virtual std::unique_ptr<LaunchedProcess> Launch(const std::wstring& failures);
    /// Called repeatedly during the launch.
    virtual void Poll(const LaunchedProcess&) {}
    /// Answers a dialog when it appears, by default with Cancel. Message boxes are answered and
    /// recorded without it.
    virtual void Answer(const LaunchedProcess&, HWND dialog, const std::wstring& title);
    /// Adds facts that are known after the end.
    virtual void AddFacts(Facts&) {}

    /// A fact of the scripted JVM's log: whether `main` was called, and with which arguments.
    std::string MainCall() const;

    InstalledApplication app;
    SettingsText settings;
    std::wstring argumentText;
    /// The replacements of `Normalized`, in order.
    std::vector<std::pair<std::wstring, std::wstring>> replacements;

  private:
    std::string WaitForEnd(const LaunchedProcess& process);
    /// The options of the first JVM.
    std::string FirstOptions() const;
    void AnswerWindows(const LaunchedProcess& process);

    std::vector<std::string> shown_;
    std::vector<std::pair<HWND, std::chrono::steady_clock::time_point>> answered_;
};

/// For `NamedScenario::most`: all calls.
inline constexpr std::size_t kEveryCall = static_cast<std::size_t>(-1);

/// A scenario of the failing-calls test.
struct NamedScenario {
    const char* name;
    const char* title;
    std::unique_ptr<Scenario> (*make)();
    // In the test command's samples; launches with windows take longer.
    std::size_t most;
    std::size_t mostPairs;
    /// Whether any two calls in a row fail, or only two of the most called functions.
    bool failsAnyTwo = true;
};

std::vector<NamedScenario> PlainScenarios();
std::vector<NamedScenario> SplashScenarios();
std::vector<NamedScenario> DialogScenarios();
std::vector<NamedScenario> InstanceScenarios();

/// All of them, from the plainest launch to the rarest.
std::vector<NamedScenario> AllScenarios();

template <typename Kind>
std::unique_ptr<Scenario> Make() {
    return std::make_unique<Kind>();
}

}  // namespace tarn::test
