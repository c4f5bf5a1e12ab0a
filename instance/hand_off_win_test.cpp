#include "instance/hand_off.h"

#include <gtest/gtest.h>

#include "instance/first_instance_fixture.h"

namespace tarn {
namespace {

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

}  // namespace
}  // namespace tarn
