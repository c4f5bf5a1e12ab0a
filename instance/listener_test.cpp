#include "instance/listener.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

constexpr UINT kRequest = WM_APP + 7;

// A first instance whose Java has not started. Desks are never freed, so they may well be static.
struct FirstInstance {
    Settings settings;
    JavaVM* javaVm = nullptr;
    SharedBlock block{};
    UniqueHandle readyEvent{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    HandOffDesk desk{{settings, javaVm}, block, readyEvent.get(), kRequest};
};

FirstInstance& NewFirstInstance() {
    return *new FirstInstance;
}

bool HasMessage() {
    MSG message;
    return PeekMessageW(&message, nullptr, kRequest, kRequest, PM_REMOVE) != FALSE;
}

TEST(ListenerTest, TheThreadIdIsKnownAtOnce) {
    Listener listener;
    DWORD threadId = 0;
    ASSERT_TRUE(listener.Start(NewFirstInstance().desk, &threadId));
    const UniqueHandle thread(OpenThread(THREAD_QUERY_INFORMATION, FALSE, threadId));
    ASSERT_TRUE(thread);
    DWORD code = 0;
    EXPECT_TRUE(GetExitCodeThread(thread.get(), &code));
    EXPECT_EQ(code, static_cast<DWORD>(STILL_ACTIVE));
    listener.Stop();
    EXPECT_TRUE(GetExitCodeThread(thread.get(), &code));
    EXPECT_EQ(code, 0u);
}

TEST(ListenerTest, EndsAlsoRightAfterItsStart) {
    FirstInstance& first = NewFirstInstance();
    for (int i = 0; i < 100; ++i) {
        Listener listener;
        DWORD threadId = 0;
        ASSERT_TRUE(listener.Start(first.desk, &threadId));
        listener.Stop();
        listener.Stop();
    }
}

TEST(ListenerTest, OneThatNeverStartedHasNothingToEnd) {
    Listener listener;
    listener.Stop();
}

TEST(ListenerTest, EndsWhileRequestsWait) {
    FirstInstance& first = NewFirstInstance();
    Listener listener;
    DWORD threadId = 0;
    ASSERT_TRUE(listener.Start(first.desk, &threadId));
    int posted = 0;
    for (int tries = 0; posted < 5 && tries < 100000; ++tries) {
        if (PostThreadMessageW(threadId, kRequest, GetCurrentThreadId(), 0)) {
            ++posted;
        } else {
            SwitchToThread();  // its queue is not there yet
        }
    }
    EXPECT_EQ(posted, 5);
    listener.Stop();
    // The workers come to a desk that is closed.
    first.desk.Close();
    SetEvent(first.readyEvent.get());
}

TEST(HandOffDeskTest, WithoutAJvmNothingIsAnswered) {
    FirstInstance& first = NewFirstInstance();
    HasMessage();
    SetEvent(first.readyEvent.get());
    EXPECT_FALSE(first.desk.HandOff(GetCurrentThreadId()));
    EXPECT_FALSE(HasMessage());
}

TEST(HandOffDeskTest, AClosedDeskLooksAtNothing) {
    FirstInstance& first = NewFirstInstance();
    // Whoever called it would crash.
    first.javaVm = reinterpret_cast<JavaVM*>(&first);
    SetEvent(first.readyEvent.get());
    first.desk.Close();
    EXPECT_FALSE(first.desk.HandOff(GetCurrentThreadId()));
}

TEST(HandOffDeskTest, AnEventThatIsGoneFailsTheRequest) {
    FirstInstance& first = NewFirstInstance();
    first.readyEvent.reset();
    EXPECT_FALSE(first.desk.HandOff(GetCurrentThreadId()));
}

}  // namespace
}  // namespace tarn
