// What the system does to programs in the middle of their lives: it asks them whether the session
// may end, and suspends and resumes them with the machine.

#include <winternl.h>

#include "base/dynamic_library.h"
#include "tests/support/single_instance_fixture.h"
#include "tests/support/splash_fixture.h"

namespace tarn::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Suspends all threads of a process until the destructor runs.
class SuspendedProcess {
  public:
    explicit SuspendedProcess(const LaunchedProcess& process) : process_(process.handle()) {
        EXPECT_EQ(Call("NtSuspendProcess"), 0);
    }
    ~SuspendedProcess() { EXPECT_EQ(Call("NtResumeProcess"), 0); }
    SuspendedProcess(const SuspendedProcess&) = delete;
    SuspendedProcess& operator=(const SuspendedProcess&) = delete;

  private:
    // Functions without an import library.
    LONG Call(const char* name) const {
        using Function = LONG(NTAPI*)(HANDLE);
        return FindFunction<Function>(GetModuleHandleW(L"ntdll.dll"), name)(process_);
    }

    HANDLE process_;
};

// The answer of the window to the system's question whether the session may end; nothing when the
// window does not answer in time.
std::optional<bool> AllowsSessionEnd(HWND window) {
    DWORD_PTR answer = 0;
    const auto limit = static_cast<UINT>(std::chrono::milliseconds(kTimeLimit).count());
    if (SendMessageTimeoutW(window, WM_QUERYENDSESSION, 0, ENDSESSION_LOGOFF, SMTO_NORMAL, limit,
                            &answer) == 0) {
        return std::nullopt;
    }
    return answer != 0;
}

// The user has cancelled the end of the session.
void TellSessionStays(HWND window) {
    SendMessageW(window, WM_ENDSESSION, FALSE, ENDSESSION_LOGOFF);
}

using SessionEnd = SplashFixture;

TEST_F(SessionEnd, IsNotPreventedByTheSplash) {
    ShowTestPicture(L"opaque.png");
    const auto process = Start();
    const HWND splash = WaitForSplash(*process);
    EXPECT_EQ(AllowsSessionEnd(splash), true);
    TellSessionStays(splash);
    EXPECT_TRUE(MainRuns());
    EXPECT_TRUE(IsWindowVisible(splash));
    EndSuccessfully(*process);
}

TEST_F(SessionEnd, IsNotPreventedByTheExceptionDialog) {
    settings.Application(L"Failure Check", L"Yes");
    app.WriteScript("main = throw\n");
    const auto process = Start();
    const HWND dialog = WaitForWindow(*process, L"#32770");
    EXPECT_EQ(AllowsSessionEnd(dialog), true);
    TellSessionStays(dialog);
    EXPECT_TRUE(IsWindowVisible(dialog));
    PressButton(dialog, IDCANCEL);
    process->ExitCode();
}

TEST_F(SessionEnd, IsNotPreventedByAnErrorBox) {
    app.WriteScript("create = -1\n");
    const auto process = Start();
    const auto box = WaitForMessageBox(*process);
    ASSERT_TRUE(box);
    EXPECT_EQ(AllowsSessionEnd(box->window), true);
    TellSessionStays(box->window);
    CloseErrorBox(*process);
    process->ExitCode();
}

using SuspendedLaunch = SplashFixture;

TEST_F(SuspendedLaunch, ContinuesWhereItStopped) {
    NamedEvent release;
    app.WriteScript("on_create = wait_event " + release.utf8Name() + "\n" + WaitInMain());
    ShowTestPicture(L"opaque.png");
    const auto process = Start(L"a \"b c\"");
    const HWND splash = WaitForSplash(*process);
    EXPECT_TRUE(app.Log().WaitFor("JNI_CreateJavaVM"));
    {
        const SuspendedProcess suspended(*process);
        release.Set();
        EXPECT_TRUE(IsWindow(splash));
        EXPECT_EQ(MainArguments(), "");
    }
    EXPECT_TRUE(MainRuns());
    EXPECT_EQ(MainArguments(), R"(["a", "b c"])");
    EndSuccessfully(*process);
}

class SuspendedFirstInstance : public SingleInstanceFixture {
  protected:
    // Whether a second launch has written its arguments.
    bool HasRequest() const {
        const InstanceBlock block = InstanceBlock::Open(app.Executable());
        return block && block.Arguments() == u"a";
    }
};

TEST_F(SuspendedFirstInstance, ServesTheWaitingLaunchWhenItIsResumed) {
    const auto first = StartFirst();
    std::unique_ptr<LaunchedProcess> second;
    {
        const SuspendedProcess suspended(*first);
        second = app.Launch(L"a");
        EXPECT_TRUE(WaitUntil([&] { return HasRequest(); }));
        EXPECT_FALSE(second->HasEnded());
        EXPECT_THAT(SecondaryCalls(), IsEmpty());
    }
    EXPECT_EQ(second->ExitCode(), 0);
    EXPECT_THAT(SecondaryCalls(), ElementsAre(R"(["a"])"));
    EndFirst(*first);
}

TEST_F(SuspendedFirstInstance, ThatIsKilledEndsTheWaitingLaunch) {
    const auto first = StartFirst();
    std::unique_ptr<LaunchedProcess> second;
    {
        const SuspendedProcess suspended(*first);
        second = app.Launch(L"a");
        EXPECT_TRUE(WaitUntil([&] { return HasRequest(); }));
        first->Terminate();
    }
    EXPECT_TRUE(second->ExitCode());
    EXPECT_THAT(SecondaryCalls(), IsEmpty());
}

}  // namespace
}  // namespace tarn::test
