#include "instance/hand_off.h"

#include <gtest/gtest.h>

#include "base/handles.h"

namespace tarn {
namespace {

/// The registered message that the requests of these tests carry.
constexpr UINT kRequestMessage = WM_APP + 7;

/// Allocated with `new` and never freed, because worker threads may outlive the test.
struct FirstInstanceFixture {
    Settings settings;
    JavaVM* javaVm = nullptr;
    SharedBlock block{};
    UniqueHandle readyEvent{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    HandOffServer server{{settings, javaVm}, block, readyEvent.get(), kRequestMessage};
};

bool HasAnswer() {
    MSG message;
    return PeekMessageW(&message, nullptr, kRequestMessage, kRequestMessage, PM_REMOVE) != FALSE;
}

class HandOffServerTest : public testing::Test {
  protected:
    FirstInstanceFixture& first_ = *new FirstInstanceFixture;
};

TEST_F(HandOffServerTest, WithoutAJvmNoAnswerIsPosted) {
    // The first call creates this thread's message queue.
    EXPECT_FALSE(HasAnswer());
    SetEvent(first_.readyEvent.get());
    EXPECT_FALSE(first_.server.HandOff(GetCurrentThreadId()));
    EXPECT_FALSE(HasAnswer());
}

TEST_F(HandOffServerTest, AfterCloseTheJvmIsNotUsed) {
    // No JVM: a call through this pointer would crash.
    first_.javaVm = reinterpret_cast<JavaVM*>(&first_);
    SetEvent(first_.readyEvent.get());
    first_.server.Close();
    EXPECT_FALSE(first_.server.HandOff(GetCurrentThreadId()));
}

TEST_F(HandOffServerTest, AReadyEventThatCannotBeWaitedForFailsTheRequest) {
    first_.readyEvent.reset();
    EXPECT_FALSE(first_.server.HandOff(GetCurrentThreadId()));
}

FirstInstanceFixture& NewFirstInstance() {
    return *new FirstInstanceFixture;
}

TEST(ListenerTest, WritesTheThreadIdBeforeStartReturns) {
    Listener listener;
    DWORD threadId = 0;
    ASSERT_TRUE(listener.Start(NewFirstInstance().server, &threadId));
    const UniqueHandle thread(OpenThread(SYNCHRONIZE, FALSE, threadId));
    ASSERT_TRUE(thread);
    EXPECT_EQ(WaitForSingleObject(thread.get(), 0), static_cast<DWORD>(WAIT_TIMEOUT));
}

TEST(ListenerTest, StopReturnsAfterTheThreadHasEndedWithZero) {
    Listener listener;
    DWORD threadId = 0;
    ASSERT_TRUE(listener.Start(NewFirstInstance().server, &threadId));
    const UniqueHandle thread(OpenThread(SYNCHRONIZE | THREAD_QUERY_INFORMATION, FALSE, threadId));
    ASSERT_TRUE(thread);
    listener.Stop();
    EXPECT_EQ(WaitForSingleObject(thread.get(), 0), WAIT_OBJECT_0);
    DWORD code = 1;
    EXPECT_TRUE(GetExitCodeThread(thread.get(), &code));
    EXPECT_EQ(code, 0u);
}

TEST(ListenerTest, StopsRightAfterTheStart) {
    FirstInstanceFixture& first = NewFirstInstance();
    for (int i = 0; i < 100; ++i) {
        Listener listener;
        DWORD threadId = 0;
        ASSERT_TRUE(listener.Start(first.server, &threadId));
        listener.Stop();
        listener.Stop();
    }
}

TEST(ListenerTest, StopWithoutStartDoesNothing) {
    Listener listener;
    listener.Stop();
}

TEST(ListenerTest, StopsWhileRequestsWait) {
    FirstInstanceFixture& first = NewFirstInstance();
    Listener listener;
    DWORD threadId = 0;
    ASSERT_TRUE(listener.Start(first.server, &threadId));
    int posted = 0;
    for (int tries = 0; posted < 5 && tries < 100000; ++tries) {
        if (PostThreadMessageW(threadId, kRequestMessage, GetCurrentThreadId(), 0)) {
            ++posted;
        } else {
            SwitchToThread();  // the thread has no message queue yet
        }
    }
    EXPECT_EQ(posted, 5);
    listener.Stop();
    // Released after the close, the workers fail their requests.
    first.server.Close();
    SetEvent(first.readyEvent.get());
}

}  // namespace
}  // namespace tarn
