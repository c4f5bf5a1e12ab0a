#include "base/one_shot_action.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

int firstCalls = 0;
int secondCalls = 0;
void First() {
    ++firstCalls;
}
void Second() {
    ++secondCalls;
}

class OneShotActionTest : public testing::Test {
  protected:
    void SetUp() override { firstCalls = secondCalls = 0; }
};

TEST_F(OneShotActionTest, InvokingAnEmptySlotDoesNothing) {
    OneShotAction action;
    action.Invoke();
    EXPECT_EQ(firstCalls, 0);
}

TEST_F(OneShotActionTest, CallsItsFunctionOnlyOnce) {
    {
        OneShotAction action;
        action.Set(First);
        action.Invoke();
        action.Invoke();
    }
    EXPECT_EQ(firstCalls, 1);
}

TEST_F(OneShotActionTest, TheDestructorCallsTheStoredFunction) {
    {
        OneShotAction action;
        action.Set(First);
    }
    EXPECT_EQ(firstCalls, 1);
}

TEST_F(OneShotActionTest, CallsTheOldFunctionBeforeStoringAnother) {
    OneShotAction action;
    action.Set(First);
    action.Set(Second);
    EXPECT_EQ(firstCalls, 1);
    EXPECT_EQ(secondCalls, 0);
}

TEST_F(OneShotActionTest, SettingTheSameFunctionAgainCallsNothing) {
    OneShotAction action;
    action.Set(First);
    action.Set(First);
    EXPECT_EQ(firstCalls, 0);
}

}  // namespace
}  // namespace tarn
