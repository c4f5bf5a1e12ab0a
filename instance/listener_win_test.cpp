#include "instance/listener.h"

#include <gtest/gtest.h>

#include "instance/first_instance_fixture.h"

namespace tarn {
namespace {

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
