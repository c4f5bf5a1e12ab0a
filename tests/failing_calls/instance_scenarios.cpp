// Two launches of an application with "Single Instance" on. The calls of one of them fail.

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/failing_calls/scenario.h"
#include "tests/support/named_event.h"
#include "tests/support/paths.h"
#include "tests/support/text.h"

namespace tarn::test {

namespace {

constexpr char kIntMethod[] =
    "no_method secondaryMain ([Ljava/lang/String;)V\nsecondaryMain = return 5\n";

class TwoInstances : public Scenario {
  public:
    std::string ApplicationCode() const override { return "9"; }

  protected:
    TwoInstances() {
        settings.Application(L"Single Instance", L"yes");
        argumentText = L"handed over";
    }

    void Prepare() override {
        mainMayEnd_ = std::make_unique<NamedEvent>();
        app.WriteScript("main = wait_event " + mainMayEnd_->utf8Name() + "\nmain = exit 9\n" +
                        kIntMethod);
    }

    std::string HandOffs() const {
        std::string calls;
        for (const std::string& each : app.Log().Texts()) {
            if (each.starts_with("CallStaticIntMethod(")) calls += each.substr(each.find('['));
        }
        return calls.empty() ? "none" : calls;
    }

    std::unique_ptr<NamedEvent> mainMayEnd_;
};

/// The calls of the first instance fail while a second one hands its arguments over.
class FirstInstance : public TwoInstances {
  protected:
    void Prepare() override {
        TwoInstances::Prepare();
        second_.reset();
        DeleteFileW(SecondLog().c_str());
    }

    void Poll(const LaunchedProcess&) override {
        if (second_ == nullptr) {
            if (MainCall() == "does not run") return;
            // Hooked as well, because its log shows how long it has waited.
            Start start = app.StartWith(L'"' + app.Executable() + L"\" x \"y z\"");
            start.library = GetPaths().importHook;
            start.environment[L"HOOK_LOG"] = SecondLog();
            second_ = std::make_unique<LaunchedProcess>(start);
        }
        const auto calls = ReadHookLog(SecondLog());
        const auto polls = std::count_if(calls.begin(), calls.end(), [](const HookedCall& each) {
            return each.function == "PeekMessageW";
        });
        // A first instance that answers does so long before the tenth poll.
        const bool isIndependent = app.Log().Count("JNI_CreateJavaVM(") > 1;
        if (second_->HasEnded() || polls >= 10 || isIndependent) mainMayEnd_->Set();
    }

    void AddFacts(Facts& facts) override {
        facts.emplace_back("hand-off", HandOffs());
        if (second_ == nullptr) return;
        facts.emplace_back("second instance", std::to_string(*second_->ExitCode()));
    }

  private:
    std::wstring SecondLog() const { return HookLogFile(app) + L"2"; }

    std::unique_ptr<LaunchedProcess> second_;
};

/// The calls of the second instance fail.
class SecondInstance : public TwoInstances {
  protected:
    std::unique_ptr<LaunchedProcess> Launch(const std::wstring& failures) override {
        first_ = app.Launch();
        EXPECT_TRUE(app.Log().WaitFor("CallStaticVoidMethod(com/example/Main.main("));
        return StartHooked(app, failures, argumentText);
    }

    void Poll(const LaunchedProcess&) override {
        // An independent launch runs `main` itself.
        if (app.Log().Count("CallStaticVoidMethod(com/example/Main.main(") > 1) mainMayEnd_->Set();
    }

    void AddFacts(Facts& facts) override {
        // Its request is served even if it does not wait for the answer.
        for (const HookedCall& each : Calls()) {
            if (each.function != "PostThreadMessageW" || each.failed) continue;
            app.Log().WaitFor("CallStaticIntMethod(");
        }
        mainMayEnd_->Set();
        EXPECT_EQ(first_->ExitCode(), 9)
            << ReadFileBytes(app.LogFile()) << ReadFileBytes(HookLogFile(app));
        facts.emplace_back("hand-off", HandOffs());
        facts.emplace_back("launches of main",
                           std::to_string(app.Log().Count("JNI_CreateJavaVM(")));
    }

  private:
    std::unique_ptr<LaunchedProcess> first_;
};

}  // namespace

// No pairs in the test command's samples: how often a second instance asks for its answer depends
// on the first one's speed, and so do the outcomes of these pairs.
std::vector<NamedScenario> InstanceScenarios() {
    return {
        {"first_instance", "A first instance, and a hand-off to it", Make<FirstInstance>, 25, 0},
        {"second_instance", "A second instance", Make<SecondInstance>, 25, 0},
    };
}

}  // namespace tarn::test
