// What happens when main has returned, thrown or ended the process.

#include "tests/support/fake_jvm_fixture.h"
#include "tests/support/named_event.h"

namespace tarn::test {
namespace {

using testing::Contains;
using testing::Not;
using testing::StartsWith;

class AfterMain : public FakeJvmFixture {
  protected:
    std::string LastCall() const {
        const auto calls = app.Log().Calls();
        return calls.empty() ? std::string() : calls.back();
    }
};

TEST_F(AfterMain, TheThreadIsDetachedAndTheExitCodeIsZero) {
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(LastCall(), "DetachCurrentThread()");
}

TEST_F(AfterMain, AFailedDetachmentFailsTheLaunch) {
    app.WriteScript("detach = -1");
    EXPECT_EQ(Run(), -1);
}

TEST_F(AfterMain, AFailedDetachmentKeepsAServiceFromDestroyingTheVm) {
    settings.Application(L"Application Type", L"service");
    app.WriteScript("detach = -2");
    EXPECT_EQ(Run(), -1);
    EXPECT_THAT(app.Log().Calls(), Not(Contains("DestroyJavaVM()")));
}

TEST_F(AfterMain, AServiceDestroysTheVmAndWaitsForIt) {
    NamedEvent end;
    settings.Application(L"Application Type", L"service");
    app.WriteScript("on_destroy = wait_event " + end.utf8Name());
    const auto process = Start();
    ASSERT_TRUE(app.Log().WaitFor("DestroyJavaVM()"));
    EXPECT_FALSE(process->HasEnded());
    end.Set();
    EXPECT_EQ(process->ExitCode(), 0);
    EXPECT_EQ(app.Log().Count("DestroyJavaVM()"), 1U);
    const auto calls = app.Log().Calls();
    EXPECT_EQ(calls.at(calls.size() - 2), "DetachCurrentThread()");
}

TEST_F(AfterMain, TheResultOfDestroyingTheVmIsIgnored) {
    settings.Application(L"Application Type", L"service");
    app.WriteScript("destroy = -1");
    EXPECT_EQ(Run(), 0);
}

TEST_F(AfterMain, OnlyTheExactWordMakesAService) {
    settings.Application(L"Application Type", L"Service");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(LastCall(), "DetachCurrentThread()");
}

TEST_F(AfterMain, AnExceptionStaysPendingAndTheExitCodeIsZero) {
    app.WriteScript("main = throw java/lang/IllegalStateException: oops");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(LastCall(), "DetachCurrentThread()");
    EXPECT_THAT(app.Log().Calls(), Not(Contains("ExceptionDescribe()")));
    EXPECT_THAT(app.Log().Calls(), Not(Contains("ExceptionClear()")));
}

TEST_F(AfterMain, SystemExitEndsTheProcessWithItsCode) {
    for (const int code : {0, 1, -1, 256, 259, -2147483647}) {
        DeleteFileW(app.LogFile().c_str());
        app.WriteScript("main = exit " + std::to_string(code));
        EXPECT_EQ(Run(), code);
        EXPECT_TRUE(app.Log().Has("exit hook returned"));
        EXPECT_THAT(app.Log().Calls(), Not(Contains("DetachCurrentThread()")));
    }
}

class ThreadCode : public AfterMain, public testing::WithParamInterface<const char*> {};

// 259 is STILL_ACTIVE, the exit code of a running thread.
TEST_P(ThreadCode, OtherThanZeroFailsTheLaunch) {
    app.WriteScript(std::string("main = ") + GetParam());
    EXPECT_EQ(Run(), -1);
    EXPECT_THAT(LastCall(), StartsWith("CallStaticVoidMethod"));
}

INSTANTIATE_TEST_SUITE_P(All, ThreadCode,
                         testing::Values("exit_thread 259", "exit_thread 1", "exit_thread -1",
                                         "terminate_thread 259", "terminate_thread 1067"));

TEST_F(AfterMain, AThreadThatEndsItselfWithZeroIsASuccess) {
    app.WriteScript("main = exit_thread 0");
    EXPECT_EQ(Run(), 0);
}

TEST_F(AfterMain, TheHooksReturnWithoutAListener) {
    app.WriteScript("main = call_abort_hook\nmain = call_exit_hook 3");
    EXPECT_EQ(Run(), 0);
    EXPECT_TRUE(app.Log().Has("abort hook returned"));
    EXPECT_TRUE(app.Log().Has("exit hook returned"));
}

class VendorPolicy : public AfterMain, public testing::WithParamInterface<const wchar_t*> {};

TEST_P(VendorPolicy, KeepsTheJavaThreadSleeping) {
    NamedEvent returned;
    NamedEvent end;
    settings.Runtime(L"VM Provider", GetParam());
    app.WriteScript("main = exit_on_event " + end.utf8Name() + " 42\nmain = set_event " +
                    returned.utf8Name());
    const auto process = Start();
    ASSERT_TRUE(returned.Wait());
    // Nothing ends it. The wait is as long as a wait for an absent event can be.
    EXPECT_FALSE(WaitUntil([&] { return process->HasEnded(); }, std::chrono::milliseconds(300)));
    end.Set();
    EXPECT_EQ(process->ExitCode(), 42);
    EXPECT_THAT(LastCall(), StartsWith("CallStaticVoidMethod"));
}

INSTANTIATE_TEST_SUITE_P(Sleeping, VendorPolicy,
                         testing::Values(L"any", L"IBM", L"favor_sun", L"favor_jrockit",
                                         L"favor_ibm"));

class OtherVendorPolicy : public AfterMain, public testing::WithParamInterface<const wchar_t*> {};

TEST_P(OtherVendorPolicy, DoesNotKeepTheLaunchFromEnding) {
    settings.Runtime(L"VM Provider", GetParam());
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(LastCall(), "DetachCurrentThread()");
}

INSTANTIATE_TEST_SUITE_P(Ending, OtherVendorPolicy,
                         testing::Values(L"jrockit", L"sun", L"another maker"));

TEST_F(AfterMain, ASleepingPolicySleepsAfterAnExceptionToo) {
    NamedEvent thrown;
    NamedEvent end;
    settings.Runtime(L"VM Provider", L"any");
    app.WriteScript("main = exit_on_event " + end.utf8Name() +
                    " 9\nmain = throw\nmain = set_event " + thrown.utf8Name());
    const auto process = Start();
    ASSERT_TRUE(thrown.Wait());
    end.Set();
    EXPECT_EQ(process->ExitCode(), 9);
    EXPECT_THAT(LastCall(), StartsWith("CallStaticVoidMethod"));
}

TEST_F(AfterMain, AServiceOfASleepingPolicyIsNeverDestroyed) {
    NamedEvent returned;
    NamedEvent end;
    settings.Runtime(L"VM Provider", L"any");
    settings.Application(L"Application Type", L"service");
    app.WriteScript("main = exit_on_event " + end.utf8Name() + " 7\nmain = set_event " +
                    returned.utf8Name());
    const auto process = Start();
    ASSERT_TRUE(returned.Wait());
    end.Set();
    EXPECT_EQ(process->ExitCode(), 7);
    EXPECT_THAT(app.Log().Calls(), Not(Contains("DestroyJavaVM()")));
}

}  // namespace
}  // namespace tarn::test
