#include "base/thread.h"

#include <gtest/gtest.h>

#include "base/handles.h"

namespace tarn {
namespace {

DWORD RunMessageLoop() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    return 0;
}

DWORD WINAPI EndsOnQuit(void*) {
    return RunMessageLoop();
}

DWORD WINAPI EndsWithStillActive(void*) {
    RunMessageLoop();
    return STILL_ACTIVE;
}

// Creates its message queue only after `WM_QUIT` has been posted for a while.
DWORD WINAPI CreatesItsQueueLate(void*) {
    for (int i = 0; i < 1000; ++i) SwitchToThread();
    return RunMessageLoop();
}

DWORD WINAPI EndsAtOnce(void*) {
    return 7;
}

// Ends the thread and returns its exit code.
DWORD ExitCodeAfterQuit(LPTHREAD_START_ROUTINE procedure) {
    DWORD threadId = 0;
    const UniqueHandle thread(CreateThread(nullptr, 0, procedure, nullptr, 0, &threadId));
    QuitAndJoin(thread.get(), threadId);
    EXPECT_EQ(WaitForSingleObject(thread.get(), 0), WAIT_OBJECT_0);
    DWORD exitCode = static_cast<DWORD>(-1);
    EXPECT_TRUE(GetExitCodeThread(thread.get(), &exitCode));
    return exitCode;
}

TEST(QuitAndJoinTest, EndsAThreadThatRunsAMessageLoop) {
    EXPECT_EQ(ExitCodeAfterQuit(EndsOnQuit), 0u);
}

TEST(QuitAndJoinTest, EndsAThreadWhoseQueueDoesNotExistYet) {
    EXPECT_EQ(ExitCodeAfterQuit(CreatesItsQueueLate), 0u);
}

TEST(QuitAndJoinTest, ReturnsWhenTheThreadExitsWithStillActive) {
    EXPECT_EQ(ExitCodeAfterQuit(EndsWithStillActive), static_cast<DWORD>(STILL_ACTIVE));
}

TEST(QuitAndJoinTest, ReturnsWhenTheThreadHasAlreadyEnded) {
    EXPECT_EQ(ExitCodeAfterQuit(EndsAtOnce), 7u);
}

TEST(QuitAndJoinTest, ReturnsWithoutAThread) {
    QuitAndJoin(nullptr, 0);
}

TEST(QuitAndJoinTest, QueriesTheIdOfTheThread) {
    const UniqueHandle thread(CreateThread(nullptr, 0, CreatesItsQueueLate, nullptr, 0, nullptr));
    QuitAndJoin(thread.get(), 0);
    EXPECT_EQ(WaitForSingleObject(thread.get(), 0), WAIT_OBJECT_0);
}

TEST(QuitAndJoinTest, ReturnsOnlyAfterTheEndWhenTheWaitFails) {
    DWORD threadId = 0;
    const UniqueHandle thread(CreateThread(nullptr, 0, CreatesItsQueueLate, nullptr, 0, &threadId));
    // A handle that cannot be waited on.
    const UniqueHandle queryOnly(OpenThread(THREAD_QUERY_INFORMATION, FALSE, threadId));
    ASSERT_EQ(WaitForSingleObject(queryOnly.get(), 0), WAIT_FAILED);
    QuitAndJoin(queryOnly.get(), threadId);
    EXPECT_EQ(WaitForSingleObject(thread.get(), 0), WAIT_OBJECT_0);
}

}  // namespace
}  // namespace tarn
