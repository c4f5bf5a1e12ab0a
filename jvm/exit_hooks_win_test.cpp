#include "jvm/exit_hooks.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarn {
namespace {

class RecordingListener : public ExitListener {
  public:
    void Exit(jint code) override { exitCodes.push_back(code); }
    void Abort() override { ++aborts; }

    std::vector<jint> exitCodes;
    int aborts = 0;
};

TEST(ExitHooks, HaveNoListenerByDefault) {
    const ExitHooks hooks;
    EXPECT_EQ(hooks.listener, nullptr);
    ExitHooks::OnExit(3);
    ExitHooks::OnAbort();
}

TEST(ExitHooks, DoNothingWithoutALauncher) {
    ExitHooks::OnExit(3);
    ExitHooks::OnAbort();
}

TEST(ExitHooks, PassTheExitCodeToTheListener) {
    ExitHooks hooks;
    RecordingListener listener;
    hooks.listener = &listener;
    ExitHooks::OnExit(3);
    ExitHooks::OnExit(-1);
    EXPECT_EQ(listener.exitCodes, (std::vector<jint>{3, -1}));
    EXPECT_EQ(listener.aborts, 0);
}

TEST(ExitHooks, NotifyTheListenerOfAnAbort) {
    ExitHooks hooks;
    RecordingListener listener;
    hooks.listener = &listener;
    ExitHooks::OnAbort();
    EXPECT_EQ(listener.aborts, 1);
    EXPECT_TRUE(listener.exitCodes.empty());
}

TEST(ExitHooks, ForgetTheListenerWithTheLauncher) {
    RecordingListener listener;
    {
        ExitHooks hooks;
        hooks.listener = &listener;
    }
    ExitHooks::OnExit(3);
    ExitHooks::OnAbort();
    EXPECT_TRUE(listener.exitCodes.empty());
    EXPECT_EQ(listener.aborts, 0);
}

TEST(ExitHooks, AreCalledByAJvm) {
    // The JVM gets the two as untyped pointers and calls them with these types.
    void(JNICALL * exitHook)(jint) = &ExitHooks::OnExit;
    void(JNICALL * abortHook)() = &ExitHooks::OnAbort;
    ExitHooks hooks;
    RecordingListener listener;
    hooks.listener = &listener;
    exitHook(7);
    abortHook();
    EXPECT_EQ(listener.exitCodes, std::vector<jint>{7});
    EXPECT_EQ(listener.aborts, 1);
}

}  // namespace
}  // namespace tarn
