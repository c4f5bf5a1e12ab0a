#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/support/fake_jvm_fixture.h"
#include "tests/support/instance_block.h"
#include "tests/support/named_event.h"

namespace tarn::test {

/// A test with an application that has "Single Instance" on. Its `main` continues until the test
/// lets it end, with the exit code `kFirstCode`.
class SingleInstanceFixture : public FakeJvmFixture {
  protected:
    static constexpr std::int32_t kFirstCode = 9;
    static constexpr char kVoidCall[] =
        "CallStaticVoidMethod(com/example/Main.secondaryMain([Ljava/lang/String;)V, ";
    static constexpr char kIntCall[] =
        "CallStaticIntMethod(com/example/Main.secondaryMain([Ljava/lang/String;)I, ";
    static constexpr char kMainCall[] = "CallStaticVoidMethod(com/example/Main.main(";
    static constexpr char kOnlyInt[] = "no_method secondaryMain ([Ljava/lang/String;)V\n";

    SingleInstanceFixture() {
        settings.Application(L"Single Instance", L"yes");
        Script("");
    }

    /// Writes the script: the long `main`, then these lines.
    void Script(std::string_view lines) {
        app.WriteScript("main = wait_event " + mayEnd.utf8Name() + "\nmain = exit " +
                        std::to_string(kFirstCode) + '\n' + std::string(lines));
    }

    /// Starts an instance and waits until its `main` runs.
    std::unique_ptr<LaunchedProcess> StartUntilMain(std::wstring_view argumentText = {}) {
        auto instance = Start(argumentText);
        app.Log().WaitFor(kMainCall);
        return instance;
    }

    /// Starts the first instance and waits until its `main` runs and it listens. Its listener is
    /// a thread of its own, which a busy machine may start after `main`.
    std::unique_ptr<LaunchedProcess> StartFirst(std::wstring_view argumentText = {}) {
        auto first = StartUntilMain(argumentText);
        EXPECT_TRUE(WaitUntil([&] { return IsListening(); }));
        return first;
    }

    /// Starts the first instance and waits until it listens, which is long before `main` runs.
    std::unique_ptr<LaunchedProcess> StartListeningFirst() {
        auto first = Start();
        EXPECT_TRUE(WaitUntil([&] { return IsListening(); }));
        return first;
    }

    /// Whether a first instance accepts requests: its thread has a message queue.
    bool IsListening() const {
        const InstanceBlock block = InstanceBlock::Open(app.Executable());
        return block && block.Number(InstanceBlock::kMessage) != 0 &&
               PostThreadMessageW(block.Number(InstanceBlock::kListenerThread), WM_NULL, 0, 0);
    }

    /// The exit code of a second launch.
    std::int32_t Second(std::wstring_view argumentText = {}) {
        return app.Launch(argumentText)->ExitCode().value_or(kNoExitCode);
    }

    /// Lets `main` end and checks that the first instance ends with its code.
    void EndFirst(const LaunchedProcess& first) {
        mayEnd.Set();
        EXPECT_EQ(first.ExitCode(), kFirstCode);
    }

    /// The arguments of every call of `secondaryMain`, in the log's notation.
    std::vector<std::string> SecondaryCalls() const {
        std::vector<std::string> calls;
        for (const std::string& text : app.Log().Texts()) {
            for (const std::string_view call : {kVoidCall, kIntCall}) {
                if (text.rfind(call, 0) == 0) {
                    calls.push_back(text.substr(call.size(), text.size() - call.size() - 1));
                }
            }
        }
        return calls;
    }

    /// The number of processes that have loaded a JVM.
    std::size_t JvmCount() const { return app.Log().Count("JNI_CreateJavaVM("); }

    NamedEvent mayEnd;
};

}  // namespace tarn::test
