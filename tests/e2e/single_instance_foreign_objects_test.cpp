// Another program can create the block of a single instance, and post messages to its listener.

#include "tests/support/single_instance_fixture.h"

namespace tarn::test {
namespace {

using testing::ElementsAre;

// A block that another program created, with the test as the "first instance".
class ForeignBlock : public SingleInstanceFixture {
  protected:
    static constexpr UINT kMessage = WM_APP + 0x123;

    ForeignBlock() : block(InstanceBlock::Create(app.Executable())) {
        // This creates the thread's message queue.
        MSG message;
        PeekMessageW(&message, nullptr, WM_USER, WM_USER, PM_NOREMOVE);
        app.WriteSettings(settings);
        Name(GetCurrentThreadId(), GetCurrentProcessId(), kMessage);
    }

    void TearDown() override {
        EXPECT_EQ(JvmCount(), 0u);
        SingleInstanceFixture::TearDown();
    }

    void Name(DWORD thread, DWORD process, UINT message) {
        block.SetNumber(InstanceBlock::kListenerThread, thread);
        block.SetNumber(InstanceBlock::kProcess, process);
        block.SetNumber(InstanceBlock::kMessage, message);
    }

    /// The request of the second launch.
    MSG Request() {
        MSG request{};
        EXPECT_TRUE(WaitUntil([&] {
            return PeekMessageW(&request, nullptr, kMessage, kMessage, PM_REMOVE) != FALSE;
        }));
        return request;
    }

    InstanceBlock block;
};

TEST_F(ForeignBlock, TheRequestNamesTheLaunchsThreadAndTheAnswerIsItsExitCode) {
    block.SetBytes(InstanceBlock::kArguments, std::string(2080, 'z'));
    const auto second = app.Launch(L"a bc");
    const MSG request = Request();
    EXPECT_EQ(request.wParam, second->threadId());
    EXPECT_EQ(request.lParam, 0);
    EXPECT_EQ(block.Arguments(), std::u16string(u"a\0bc", 4));
    EXPECT_EQ(block.Bytes(InstanceBlock::kUnused, 1040), std::string(1040, 'z'));

    EXPECT_TRUE(PostThreadMessageW(second->threadId(), kMessage + 1, 5, 0));
    EXPECT_TRUE(PostThreadMessageW(second->threadId(), WM_NULL, 6, 0));
    EXPECT_TRUE(PostThreadMessageW(second->threadId(), kMessage, 4242, 0));
    EXPECT_EQ(second->ExitCode(), 4242);
}

TEST_F(ForeignBlock, AnImmediateAnswerIsNotLost) {
    for (int i = 0; i < 5; ++i) {
        const auto second = app.Launch();
        const MSG request = Request();
        EXPECT_TRUE(PostThreadMessageW(static_cast<DWORD>(request.wParam), kMessage, 1000, 0));
        EXPECT_EQ(second->ExitCode(), 1000);
    }
}

TEST_F(ForeignBlock, ANegativeAnswerIsANegativeExitCode) {
    const auto second = app.Launch();
    const MSG request = Request();
    EXPECT_TRUE(PostThreadMessageW(static_cast<DWORD>(request.wParam), kMessage,
                                   static_cast<WPARAM>(-1), 0));
    EXPECT_EQ(second->ExitCode(), -1);
}

TEST_F(ForeignBlock, WithoutAListenerInItTheLaunchFails) {
    Name(0, 0, 0);
    EXPECT_EQ(Second(L"x"), -1);
}

TEST_F(ForeignBlock, ADeadThreadInItFailsTheLaunch) {
    const auto gone = app.LaunchWith(L"other");
    const DWORD thread = gone->threadId();
    gone->Terminate();
    EXPECT_TRUE(gone->ExitCode().has_value());
    Name(thread, GetCurrentProcessId(), kMessage);
    EXPECT_EQ(Second(L"x"), -1);
}

TEST_F(ForeignBlock, WithoutAProcessTheLaunchDoesNotWait) {
    Name(GetCurrentThreadId(), 0, kMessage);
    EXPECT_EQ(Second(L"x"), 0);
    Request();
    Name(GetCurrentThreadId(), 0xFFFFFFFC, kMessage);
    EXPECT_EQ(Second(L"x"), 0);
    Request();
}

TEST_F(ForeignBlock, TheCodeOfAnEndedProcessIsUsed) {
    tarn::test::Start start;
    start.program = L"C:\\windows\\system32\\cmd.exe";
    start.commandLine = L"cmd.exe /c exit 31";
    const LaunchedProcess gone(start);
    EXPECT_EQ(gone.ExitCode(), 31);
    Name(GetCurrentThreadId(), gone.id(), kMessage);
    EXPECT_EQ(Second(L"x"), 31);
    Request();
}

TEST_F(ForeignBlock, AMessageIdOfZeroIsAnOrdinaryMessage) {
    Name(GetCurrentThreadId(), GetCurrentProcessId(), WM_NULL);
    const auto second = app.Launch();
    MSG request{};
    EXPECT_TRUE(WaitUntil([&] {
        return PeekMessageW(&request, nullptr, 0, 0, PM_REMOVE) && request.message == WM_NULL &&
               request.wParam == second->threadId();
    }));
    EXPECT_TRUE(PostThreadMessageW(second->threadId(), WM_NULL, 12, 0));
    EXPECT_EQ(second->ExitCode(), 12);
}

// Another program that posts to the first instance's listener and writes to its block.
class ForeignMessage : public SingleInstanceFixture {
  protected:
    void Post(UINT message, WPARAM wParam, LPARAM lParam = 0) {
        const InstanceBlock block = InstanceBlock::Open(app.Executable());
        EXPECT_TRUE(PostThreadMessageW(block.Number(InstanceBlock::kListenerThread), message,
                                       wParam, lParam));
    }
    UINT Message() const {
        return RegisterWindowMessageW(InstanceNameOf(app.Executable()).c_str());
    }
};

TEST_F(ForeignMessage, AnyWParamIsHandledWithoutHarm) {
    const auto first = StartFirst();
    const WPARAM senders[] = {0, 1, 0xFFFFFFFF, ~WPARAM{0}, first->threadId()};
    for (const WPARAM sender : senders) Post(Message(), sender, 99);
    EXPECT_TRUE(WaitUntil([&] { return app.Log().Count("DetachCurrentThread()") == 5; }));
    EXPECT_EQ(SecondaryCalls().size(), 5u);
    EXPECT_EQ(Second(L"a"), 0);
    EndFirst(*first);
}

TEST_F(ForeignMessage, OtherMessagesAreIgnored) {
    const auto first = StartFirst();
    for (const UINT message : {0u, static_cast<UINT>(WM_CLOSE), 0x400u, 0xC000u, 0xFFFFu}) {
        if (message != Message()) Post(message, GetCurrentThreadId());
    }
    EXPECT_EQ(Second(L"a"), 0);
    EXPECT_TRUE(WaitUntil([&] { return SecondaryCalls().size() == 1; }));
    EndFirst(*first);
}

TEST_F(ForeignMessage, AnUnterminatedAreaEndsTheLastArgument) {
    const auto first = StartFirst();
    InstanceBlock block = InstanceBlock::Open(app.Executable());
    block.SetBytes(InstanceBlock::kArguments, std::string(2080, 'x'));
    Post(Message(), GetCurrentThreadId());
    app.Log().WaitFor("DetachCurrentThread()");
    std::string units;
    for (int i = 0; i < 520; ++i) units += "\u7878";
    EXPECT_THAT(SecondaryCalls(), ElementsAre("[\"" + units + "\"]"));
    EndFirst(*first);
}

TEST_F(ForeignMessage, ForeignIdsDoNotRedirectTheAnswer) {
    const auto first = StartFirst();
    InstanceBlock block = InstanceBlock::Open(app.Executable());
    MSG message;
    PeekMessageW(&message, nullptr, WM_USER, WM_USER, PM_NOREMOVE);
    const DWORD listener = block.Number(InstanceBlock::kListenerThread);
    block.SetBytes(0, std::string(12, '\xEE'));
    EXPECT_TRUE(PostThreadMessageW(listener, Message(), GetCurrentThreadId(), 0));
    EXPECT_TRUE(WaitUntil(
        [&] { return PeekMessageW(&message, nullptr, Message(), Message(), PM_REMOVE) != FALSE; }));
    EXPECT_EQ(message.wParam, 0u);
    EXPECT_EQ(message.lParam, 0);
    EndFirst(*first);
}

TEST_F(ForeignMessage, AQuitEndsTheListenerButNotTheApplication) {
    const auto first = StartFirst();
    Post(WM_QUIT, 0);
    EXPECT_TRUE(WaitUntil([&] { return !IsListening(); }));
    EXPECT_EQ(Second(L"x"), -1);
    EndFirst(*first);
}

}  // namespace
}  // namespace tarn::test
