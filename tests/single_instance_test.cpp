// What the launches of one executable share, when they share it, and what strangers can do to it.

#include "tests/support/single_instance_test.h"

#include "tests/support/text.h"

namespace tarn::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SharedObjectsTest : public SingleInstanceTest {
  protected:
    std::wstring Name() const { return InstanceNameOf(app.Executable()); }
    std::wstring EventName() const { return Name() + L"_upr_evt"; }

    /// Two launches that know nothing of each other: each creates a JVM.
    void ExpectIndependentLaunches() {
        const auto first = StartFirst();
        const auto second = app.Launch(L"x");
        EXPECT_TRUE(WaitUntil([&] { return app.Log().Count(kMainCall) == 2; }));
        EXPECT_EQ(Machines(), 2u);
        mayEnd.Set();
        EXPECT_EQ(first->ExitCode(), kFirstCode);
        EXPECT_EQ(second->ExitCode(), kFirstCode);
        EXPECT_THAT(SecondaryCalls(), IsEmpty());
    }

    /// The same for a block that cannot be mapped whole for writing. Wine maps it all the same
    /// (sizes count in pages, and protection does not count); it is then a block like any other
    /// that names no first instance.
    void ExpectBlockIsOfNoUse(const Handle& mapping) {
        ASSERT_TRUE(mapping);
        if (!InstanceBlock::Create(app.Executable())) {
            ExpectIndependentLaunches();
        } else {
            EXPECT_EQ(Run(L"x"), -1);
            EXPECT_EQ(Machines(), 0u);
        }
    }
};

TEST_F(SharedObjectsTest, TheBlockNamesTheFirstInstance) {
    const auto first = StartFirst();
    const InstanceBlock block = InstanceBlock::Open(app.Executable());
    ASSERT_TRUE(block);
    EXPECT_EQ(block.Number(InstanceBlock::kProcess), first->id());
    EXPECT_EQ(block.Number(InstanceBlock::kMessage), RegisterWindowMessageW(Name().c_str()));
    const Handle listener(
        OpenThread(THREAD_QUERY_INFORMATION, FALSE, block.Number(InstanceBlock::kListenerThread)));
    ASSERT_TRUE(listener);
    EXPECT_EQ(GetProcessIdOfThread(listener.get()), first->id());
    EXPECT_NE(block.Number(InstanceBlock::kListenerThread), first->threadId());
    EXPECT_EQ(block.Bytes(InstanceBlock::kArguments, 2080), std::string(2080, '\0'));
    EndFirst(*first);
}

TEST_F(SharedObjectsTest, TheBlockHoldsTheSecondLaunchsArguments) {
    const auto first = StartFirst(L"not these");
    EXPECT_EQ(Second(L"a much longer argument"), 0);
    EXPECT_EQ(Second(L"a bc"), 0);
    const InstanceBlock block = InstanceBlock::Open(app.Executable());
    ASSERT_TRUE(block);
    std::string expected("a\0\0\0b\0c\0\0\0", 10);
    expected.resize(InstanceBlock::kArgumentBytes, '\0');
    EXPECT_EQ(block.Bytes(InstanceBlock::kArguments, InstanceBlock::kArgumentBytes), expected);
    EXPECT_EQ(block.Bytes(InstanceBlock::kUnused, 1040), std::string(1040, '\0'));
    EndFirst(*first);
}

TEST_F(SharedObjectsTest, TheReadyEventIsSetWhenMainIsAboutToBeCalled) {
    NamedEvent mayCreate;
    Script("on_create = wait_event " + mayCreate.utf8Name());
    const auto first = StartListeningFirst();
    const Handle ready(OpenEventW(SYNCHRONIZE, FALSE, EventName().c_str()));
    ASSERT_TRUE(ready);
    app.Log().WaitFor("JNI_CreateJavaVM(");
    EXPECT_EQ(WaitForSingleObject(ready.get(), 0), static_cast<DWORD>(WAIT_TIMEOUT));
    mayCreate.Set();
    app.Log().WaitFor(kMainCall);
    EXPECT_EQ(WaitForSingleObject(ready.get(), 0), WAIT_OBJECT_0);
    // It stays set.
    EXPECT_EQ(WaitForSingleObject(ready.get(), 0), WAIT_OBJECT_0);
    EndFirst(*first);
}

TEST_F(SharedObjectsTest, NothingIsLeftWhenMainHasReturned) {
    app.WriteScript("");
    EXPECT_EQ(Run(), 0);
    EXPECT_FALSE(InstanceBlock::Open(app.Executable()));
    EXPECT_FALSE(Handle(OpenEventW(SYNCHRONIZE, FALSE, EventName().c_str())));
}

TEST_F(SharedObjectsTest, TheNextLaunchIsAFirstOneAgain) {
    const auto first = StartFirst();
    EndFirst(*first);
    app.WriteScript("");
    EXPECT_EQ(Run(L"again"), 0);
    EXPECT_EQ(Machines(), 2u);
    EXPECT_THAT(SecondaryCalls(), IsEmpty());
}

TEST_F(SharedObjectsTest, ASecondLaunchNeedsNoRuntime) {
    const auto first = StartFirst();
    settings.Runtime(L"JRE Path", L"C:\\nowhere");
    app.WriteSettings(settings);
    EXPECT_EQ(Second(L"a"), 0);
    EndFirst(*first);
}

TEST_F(SharedObjectsTest, CopiesUnderOtherPathsAreOnTheirOwn) {
    InstalledApplication other;
    other.environment = app.environment;
    other.WriteSettings(SettingsText(settings));
    const auto first = StartFirst();
    const auto copy = other.Launch(L"x");
    EXPECT_TRUE(WaitUntil([&] { return app.Log().Count(kMainCall) == 2; }));
    EXPECT_NE(InstanceBlock::Open(app.Executable()).Number(InstanceBlock::kProcess),
              InstanceBlock::Open(other.Executable()).Number(InstanceBlock::kProcess));
    mayEnd.Set();
    EXPECT_EQ(first->ExitCode(), kFirstCode);
    EXPECT_EQ(copy->ExitCode(), kFirstCode);
    EXPECT_THAT(SecondaryCalls(), IsEmpty());
}

TEST_F(SharedObjectsTest, ACapitalYesLeavesItOff) {
    settings.Application(L"Single Instance", L"Yes");
    ExpectIndependentLaunches();
}

TEST_F(SharedObjectsTest, AnAddedYesHasABlankBeforeItAndLeavesItOff) {
    settings.Remove(L"Application", L"Single Instance");
    settings.Set(L"Application+", L"Single Instance", L"yes");
    ExpectIndependentLaunches();
}

TEST_F(SharedObjectsTest, OffMakesNoSharedObjects) {
    settings.Remove(L"Application", L"Single Instance");
    const auto first = StartFirst();
    EXPECT_FALSE(InstanceBlock::Open(app.Executable()));
    EXPECT_FALSE(Handle(OpenEventW(SYNCHRONIZE, FALSE, EventName().c_str())));
    EndFirst(*first);
}

TEST_F(SharedObjectsTest, AServiceIsNeverASingleInstance) {
    settings.Application(L"Application Type", L"service");
    ExpectIndependentLaunches();
}

TEST_F(SharedObjectsTest, OnlyTheExactWordMakesAService) {
    settings.Application(L"Application Type", L"Service");
    const auto first = StartFirst();
    EXPECT_EQ(Second(L"a"), 0);
    EndFirst(*first);
}

TEST_F(SharedObjectsTest, AnObjectOfAnotherKindSwitchesItOff) {
    const Handle stranger(CreateEventW(nullptr, TRUE, FALSE, Name().c_str()));
    ASSERT_TRUE(stranger);
    ExpectIndependentLaunches();
}

TEST_F(SharedObjectsTest, ASmallerBlockSwitchesItOff) {
    const Handle stranger(
        CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, 100, Name().c_str()));
    ExpectBlockIsOfNoUse(stranger);
}

TEST_F(SharedObjectsTest, AReadOnlyBlockSwitchesItOff) {
    const Handle stranger(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READONLY, 0,
                                             InstanceBlock::kSize, Name().c_str()));
    ExpectBlockIsOfNoUse(stranger);
}

TEST_F(SharedObjectsTest, ABlockWithoutMemoryBehindItSwitchesItOff) {
    const Handle stranger(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr,
                                             PAGE_READWRITE | SEC_RESERVE, 0, InstanceBlock::kSize,
                                             Name().c_str()));
    ASSERT_TRUE(stranger);
    ExpectIndependentLaunches();
}

TEST_F(SharedObjectsTest, ATakenEventNameDoesNotHurt) {
    const Handle stranger(CreateMutexW(nullptr, FALSE, EventName().c_str()));
    ASSERT_TRUE(stranger);
    const auto first = StartFirst();
    EXPECT_EQ(Second(L"a"), 0);
    EndFirst(*first);
}

TEST_F(SharedObjectsTest, AnEventThatIsAlreadySetDoesNotAnswerEarly) {
    const Handle stranger(CreateEventW(nullptr, TRUE, TRUE, EventName().c_str()));
    ASSERT_TRUE(stranger);
    NamedEvent mayCreate;
    Script("on_create = wait_event " + mayCreate.utf8Name());
    const auto first = StartListeningFirst();
    EXPECT_EQ(WaitForSingleObject(stranger.get(), 0), static_cast<DWORD>(WAIT_TIMEOUT));
    const auto second = app.Launch(L"x");
    app.Log().WaitFor("JNI_CreateJavaVM(");
    mayCreate.Set();
    EXPECT_EQ(second->ExitCode(), 0);
    EndFirst(*first);
}

// A block that somebody else made, with the test as the "first instance".
class StrangersBlockTest : public SingleInstanceTest {
  protected:
    static constexpr UINT kMessage = WM_APP + 0x123;

    StrangersBlockTest() : block(InstanceBlock::Create(app.Executable())) {
        // From here on this thread has a queue.
        MSG message;
        PeekMessageW(&message, nullptr, WM_USER, WM_USER, PM_NOREMOVE);
        app.WriteSettings(settings);
        Name(GetCurrentThreadId(), GetCurrentProcessId(), kMessage);
    }

    void TearDown() override {
        EXPECT_EQ(Machines(), 0u);
        SingleInstanceTest::TearDown();
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

TEST_F(StrangersBlockTest, TheRequestNamesTheLaunchsThreadAndTheAnswerIsItsExitCode) {
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

TEST_F(StrangersBlockTest, AnAnswerAtOnceIsNotLost) {
    for (int i = 0; i < 5; ++i) {
        const auto second = app.Launch();
        const MSG request = Request();
        EXPECT_TRUE(PostThreadMessageW(static_cast<DWORD>(request.wParam), kMessage, 1000, 0));
        EXPECT_EQ(second->ExitCode(), 1000);
    }
}

TEST_F(StrangersBlockTest, ANegativeAnswerIsANegativeExitCode) {
    const auto second = app.Launch();
    const MSG request = Request();
    EXPECT_TRUE(PostThreadMessageW(static_cast<DWORD>(request.wParam), kMessage,
                                   static_cast<WPARAM>(-1), 0));
    EXPECT_EQ(second->ExitCode(), -1);
}

TEST_F(StrangersBlockTest, WithoutAnybodyInItTheLaunchFails) {
    Name(0, 0, 0);
    EXPECT_EQ(Second(L"x"), -1);
}

TEST_F(StrangersBlockTest, ADeadThreadInItFailsTheLaunch) {
    const auto gone = app.LaunchWith(L"other");
    const DWORD thread = gone->threadId();
    gone->Terminate();
    EXPECT_TRUE(gone->ExitCode().has_value());
    Name(thread, GetCurrentProcessId(), kMessage);
    EXPECT_EQ(Second(L"x"), -1);
}

TEST_F(StrangersBlockTest, WithoutAProcessThereIsNobodyToWaitFor) {
    Name(GetCurrentThreadId(), 0, kMessage);
    EXPECT_EQ(Second(L"x"), 0);
    Request();
    Name(GetCurrentThreadId(), 0xFFFFFFFC, kMessage);
    EXPECT_EQ(Second(L"x"), 0);
    Request();
}

TEST_F(StrangersBlockTest, TheCodeOfAProcessThatHasEndedIsTaken) {
    tarn::test::Start start;
    start.program = L"C:\\windows\\system32\\cmd.exe";
    start.commandLine = L"cmd.exe /c exit 31";
    const LaunchedProcess gone(start);
    EXPECT_EQ(gone.ExitCode(), 31);
    Name(GetCurrentThreadId(), gone.id(), kMessage);
    EXPECT_EQ(Second(L"x"), 31);
    Request();
}

TEST_F(StrangersBlockTest, AMessageIdOfZeroIsAMessageLikeAnyOther) {
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

// Somebody who posts to the first instance's listener and writes into its block.
class StrangersMessageTest : public SingleInstanceTest {
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

TEST_F(StrangersMessageTest, AnyWParamIsServedAndHurtsNobody) {
    const auto first = StartFirst();
    const WPARAM senders[] = {0, 1, 0xFFFFFFFF, ~WPARAM{0}, first->threadId()};
    for (const WPARAM sender : senders) Post(Message(), sender, 99);
    EXPECT_TRUE(WaitUntil([&] { return app.Log().Count("DetachCurrentThread()") == 5; }));
    EXPECT_EQ(SecondaryCalls().size(), 5u);
    EXPECT_EQ(Second(L"a"), 0);
    EndFirst(*first);
}

TEST_F(StrangersMessageTest, OtherMessagesAreIgnored) {
    const auto first = StartFirst();
    for (const UINT message : {0u, static_cast<UINT>(WM_CLOSE), 0x400u, 0xC000u, 0xFFFFu}) {
        if (message != Message()) Post(message, GetCurrentThreadId());
    }
    EXPECT_EQ(Second(L"a"), 0);
    EXPECT_TRUE(WaitUntil([&] { return SecondaryCalls().size() == 1; }));
    EndFirst(*first);
}

TEST_F(StrangersMessageTest, AnAreaWithoutAnEndIsCutAtItsEnd) {
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

TEST_F(StrangersMessageTest, IdsThatSomebodyWroteDoNotMoveTheAnswer) {
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

TEST_F(StrangersMessageTest, AQuitEndsTheListenerButNotTheApplication) {
    const auto first = StartFirst();
    Post(WM_QUIT, 0);
    EXPECT_TRUE(WaitUntil([&] { return !IsListening(); }));
    EXPECT_EQ(Second(L"x"), -1);
    EndFirst(*first);
}

}  // namespace
}  // namespace tarn::test
