// The objects that the launches of one executable share, and when they share them.

#include "tests/support/hook_log.h"
#include "tests/support/single_instance_fixture.h"

namespace tarn::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::Field;
using testing::IsEmpty;

class SharedObjects : public SingleInstanceFixture {
  protected:
    std::wstring Name() const { return InstanceNameOf(app.Executable()); }
    std::wstring EventName() const { return Name() + L"_upr_evt"; }

    /// Two independent launches: each creates a JVM.
    void ExpectIndependentLaunches() {
        const auto first = StartUntilMain();
        const auto second = app.Launch(L"x");
        EXPECT_TRUE(WaitUntil([&] { return app.Log().Count(kMainCall) == 2; }));
        EXPECT_EQ(JvmCount(), 2u);
        mayEnd.Set();
        EXPECT_EQ(first->ExitCode(), kFirstCode);
        EXPECT_EQ(second->ExitCode(), kFirstCode);
        EXPECT_THAT(SecondaryCalls(), IsEmpty());
    }

    /// The same for a block that cannot be mapped completely for writing. Wine maps it
    /// nevertheless, because it rounds sizes up to pages and ignores the protection; the block then
    /// names no first instance.
    void ExpectBlockIsUnusable(const UniqueHandle& mapping) {
        ASSERT_TRUE(mapping);
        if (!InstanceBlock::Create(app.Executable())) {
            ExpectIndependentLaunches();
        } else {
            EXPECT_EQ(Run(L"x"), -1);
            EXPECT_EQ(JvmCount(), 0u);
        }
    }
};

TEST_F(SharedObjects, TheBlockNamesTheFirstInstance) {
    const auto first = StartFirst();
    const InstanceBlock block = InstanceBlock::Open(app.Executable());
    ASSERT_TRUE(block);
    EXPECT_EQ(block.Number(InstanceBlock::kProcess), first->id());
    EXPECT_EQ(block.Number(InstanceBlock::kMessage), RegisterWindowMessageW(Name().c_str()));
    const UniqueHandle listener(
        OpenThread(THREAD_QUERY_INFORMATION, FALSE, block.Number(InstanceBlock::kListenerThread)));
    ASSERT_TRUE(listener);
    EXPECT_EQ(GetProcessIdOfThread(listener.get()), first->id());
    EXPECT_NE(block.Number(InstanceBlock::kListenerThread), first->threadId());
    EXPECT_EQ(block.Bytes(InstanceBlock::kArguments, 2080), std::string(2080, '\0'));
    EndFirst(*first);
}

TEST_F(SharedObjects, TheBlockContainsTheSecondLaunchsArguments) {
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

TEST_F(SharedObjects, TheReadyEventIsSetWhenMainIsAboutToBeCalled) {
    NamedEvent mayCreate;
    Script("on_create = wait_event " + mayCreate.utf8Name());
    const auto first = StartListeningFirst();
    const UniqueHandle ready(OpenEventW(SYNCHRONIZE, FALSE, EventName().c_str()));
    ASSERT_TRUE(ready);
    app.Log().WaitFor("JNI_CreateJavaVM(");
    EXPECT_EQ(WaitForSingleObject(ready.get(), 0), static_cast<DWORD>(WAIT_TIMEOUT));
    mayCreate.Set();
    app.Log().WaitFor(kMainCall);
    EXPECT_EQ(WaitForSingleObject(ready.get(), 0), WAIT_OBJECT_0);
    // The event stays set.
    EXPECT_EQ(WaitForSingleObject(ready.get(), 0), WAIT_OBJECT_0);
    EndFirst(*first);
}

TEST_F(SharedObjects, NothingRemainsAfterMainHasReturned) {
    app.WriteScript("");
    EXPECT_EQ(Run(), 0);
    EXPECT_FALSE(InstanceBlock::Open(app.Executable()));
    EXPECT_FALSE(UniqueHandle(OpenEventW(SYNCHRONIZE, FALSE, EventName().c_str())));
}

TEST_F(SharedObjects, TheNextLaunchIsAFirstOneAgain) {
    const auto first = StartFirst();
    EndFirst(*first);
    app.WriteScript("");
    EXPECT_EQ(Run(L"again"), 0);
    EXPECT_EQ(JvmCount(), 2u);
    EXPECT_THAT(SecondaryCalls(), IsEmpty());
}

TEST_F(SharedObjects, ASecondLaunchNeedsNoRuntime) {
    const auto first = StartFirst();
    settings.Runtime(L"JRE Path", L"C:\\nowhere");
    app.WriteSettings(settings);
    EXPECT_EQ(Second(L"a"), 0);
    EndFirst(*first);
}

TEST_F(SharedObjects, CopiesWithOtherPathsAreIndependent) {
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

TEST_F(SharedObjects, ACapitalYesLeavesItOff) {
    settings.Application(L"Single Instance", L"Yes");
    ExpectIndependentLaunches();
}

TEST_F(SharedObjects, AnAdditiveYesBeginsWithASpaceAndLeavesItOff) {
    settings.Remove(L"Application", L"Single Instance");
    settings.Set(L"Application+", L"Single Instance", L"yes");
    ExpectIndependentLaunches();
}

TEST_F(SharedObjects, OffCreatesNoSharedObjects) {
    settings.Remove(L"Application", L"Single Instance");
    const auto first = StartUntilMain();
    EXPECT_FALSE(InstanceBlock::Open(app.Executable()));
    EXPECT_FALSE(UniqueHandle(OpenEventW(SYNCHRONIZE, FALSE, EventName().c_str())));
    EndFirst(*first);
}

TEST_F(SharedObjects, AServiceIsNeverASingleInstance) {
    settings.Application(L"Application Type", L"service");
    ExpectIndependentLaunches();
}

TEST_F(SharedObjects, OnlyTheExactWordMakesAService) {
    settings.Application(L"Application Type", L"Service");
    const auto first = StartFirst();
    EXPECT_EQ(Second(L"a"), 0);
    EndFirst(*first);
}

TEST_F(SharedObjects, AnObjectOfAnotherKindSwitchesItOff) {
    const UniqueHandle foreign(CreateEventW(nullptr, TRUE, FALSE, Name().c_str()));
    ASSERT_TRUE(foreign);
    ExpectIndependentLaunches();
}

TEST_F(SharedObjects, ASmallerBlockSwitchesItOff) {
    const UniqueHandle foreign(
        CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, 100, Name().c_str()));
    ExpectBlockIsUnusable(foreign);
}

TEST_F(SharedObjects, AReadOnlyBlockSwitchesItOff) {
    const UniqueHandle foreign(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READONLY, 0,
                                                  InstanceBlock::kSize, Name().c_str()));
    ExpectBlockIsUnusable(foreign);
}

TEST_F(SharedObjects, AReservedBlockSwitchesItOff) {
    const UniqueHandle foreign(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr,
                                                  PAGE_READWRITE | SEC_RESERVE, 0,
                                                  InstanceBlock::kSize, Name().c_str()));
    ASSERT_TRUE(foreign);
    ExpectIndependentLaunches();
}

TEST_F(SharedObjects, AnEventNameInUseIsHarmless) {
    const UniqueHandle foreign(CreateMutexW(nullptr, FALSE, EventName().c_str()));
    ASSERT_TRUE(foreign);
    const auto first = StartFirst();
    EXPECT_EQ(Second(L"a"), 0);
    EndFirst(*first);
}

TEST_F(SharedObjects, AnEventThatIsAlreadySetDoesNotAnswerEarly) {
    const UniqueHandle foreign(CreateEventW(nullptr, TRUE, TRUE, EventName().c_str()));
    ASSERT_TRUE(foreign);
    NamedEvent mayCreate;
    Script("on_create = wait_event " + mayCreate.utf8Name());
    const auto first = StartListeningFirst();
    EXPECT_EQ(WaitForSingleObject(foreign.get(), 0), static_cast<DWORD>(WAIT_TIMEOUT));
    const auto second = app.Launch(L"x");
    app.Log().WaitFor("JNI_CreateJavaVM(");
    mayCreate.Set();
    EXPECT_EQ(second->ExitCode(), 0);
    EndFirst(*first);
}

// The launcher waits for the end of its listener, which it ends by a message to its id.
TEST_F(SharedObjects, AListenerWhoseIdIsUnknownAtFirstIsEnded) {
    app.WriteScript("");
    app.WriteSettings(settings);
    EXPECT_EQ(StartHooked(app, L"GetThreadId:1")->ExitCode(), 0);
    EXPECT_THAT(ReadHookLog(HookLogFile(app)),
                Contains(AllOf(Field(&HookedCall::function, "GetThreadId"),
                               Field(&HookedCall::failed, true))));
}

}  // namespace
}  // namespace tarn::test
