// The effect of a second launch on the running application, and its own end.

#include <algorithm>

#include "tests/support/single_instance_fixture.h"

namespace tarn::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class HandOff : public SingleInstanceFixture {
  protected:
    /// The log of the first request's thread, in order.
    std::vector<std::string> WorkerCalls() const {
        const auto lines = app.Log().Lines();
        const auto attach = std::find_if(lines.begin(), lines.end(), [](const auto& line) {
            return line.text == "AttachCurrentThread()";
        });
        std::vector<std::string> calls;
        for (auto line = attach; line != lines.end(); ++line) {
            if (line->thread == attach->thread) calls.push_back(line->text);
        }
        return calls;
    }

    /// A request that fails: the second launch gets no answer and ends with the first process's
    /// code.
    void ExpectNoAnswer(const char* lastLine) {
        const auto first = StartFirst();
        const auto second = app.Launch(L"x");
        app.Log().WaitFor(lastLine);
        EXPECT_FALSE(second->HasEnded());
        EndFirst(*first);
        EXPECT_EQ(second->ExitCode(), kFirstCode);
        EXPECT_THAT(SecondaryCalls(), IsEmpty());
    }
};

TEST_F(HandOff, TheVoidFormReceivesTheArgumentsAndAnswersZero) {
    const auto first = StartFirst(L"own");
    EXPECT_EQ(Second(L"a \"b c\" -nosplash"), 0);
    EXPECT_THAT(SecondaryCalls(), ElementsAre(R"(["a", "b c", "-nosplash"])"));
    EXPECT_EQ(JvmCount(), 1u);
    EndFirst(*first);
}

TEST_F(HandOff, TheVoidFormAnswersBeforeItIsCalled) {
    NamedEvent mayReturn;
    Script("secondaryMain = wait_event " + mayReturn.utf8Name());
    const auto first = StartFirst();
    EXPECT_EQ(Second(L"a"), 0);
    EXPECT_FALSE(app.Log().Has("DetachCurrentThread()"));
    mayReturn.Set();
    app.Log().WaitFor("DetachCurrentThread()");
    EndFirst(*first);
}

TEST_F(HandOff, TheIntFormAnswersAfterItHasReturned) {
    NamedEvent mayReturn;
    Script(std::string(kOnlyInt) + "secondaryMain = wait_event " + mayReturn.utf8Name() +
           "\nsecondaryMain = return 7");
    const auto first = StartFirst();
    const auto second = app.Launch(L"a");
    app.Log().WaitFor(kIntCall);
    EXPECT_FALSE(second->HasEnded());
    mayReturn.Set();
    EXPECT_EQ(second->ExitCode(), 7);
    EndFirst(*first);
}

TEST_F(HandOff, TheCallsOfTheVoidForm) {
    const auto first = StartFirst();
    EXPECT_EQ(Second(L"a"), 0);
    app.Log().WaitFor("DetachCurrentThread()");
    auto calls = WorkerCalls();
    // Other tests cover how the array is created.
    std::erase_if(calls, [](const std::string& call) {
        return call.find("java/lang/String\"") != std::string::npos ||
               call.find("\"<init>\"") != std::string::npos || call.starts_with("New") ||
               call.starts_with("Set") || call.starts_with("DeleteLocalRef");
    });
    // Its checks follow the one after the lookup.
    calls.erase(std::unique(calls.begin(), calls.end()), calls.end());
    EXPECT_THAT(calls, ElementsAre("AttachCurrentThread()", "FindClass(\"com/example/Main\")",
                                   "GetStaticMethodID(class com/example/Main, \"secondaryMain\", "
                                   "\"([Ljava/lang/String;)V\")",
                                   "ExceptionCheck()", std::string(kVoidCall) + "[\"a\"])",
                                   "ExceptionCheck()", "DetachCurrentThread()"));
    EndFirst(*first);
}

class IntResult : public HandOff, public testing::WithParamInterface<std::int32_t> {};

TEST_P(IntResult, IsTheExitCodeOfTheSecondLaunch) {
    Script(std::string(kOnlyInt) + "secondaryMain = return " + std::to_string(GetParam()));
    const auto first = StartFirst();
    EXPECT_EQ(Second(), GetParam());
    EXPECT_THAT(SecondaryCalls(), ElementsAre("[]"));
    EndFirst(*first);
}

INSTANTIATE_TEST_SUITE_P(HandOff, IntResult,
                         testing::Values(0, 7, -1, 259, 2147483647, -2147483647 - 1));

TEST_F(HandOff, WithoutEitherFormThereIsNoAnswer) {
    Script("no_method secondaryMain");
    ExpectNoAnswer("DetachCurrentThread()");
    EXPECT_EQ(app.Log().Count("ExceptionClear()"), 1u);
    EXPECT_EQ(app.Log().Count("ExceptionDescribe()"), 1u);
}

TEST_F(HandOff, AMethodMissingWithoutAnExceptionIsNotDescribed) {
    Script("no_method_silent secondaryMain");
    ExpectNoAnswer("DetachCurrentThread()");
    EXPECT_EQ(app.Log().Count("ExceptionDescribe()"), 0u);
}

TEST_F(HandOff, WithoutTheClassThereIsNoAnswer) {
    Script("no_class com/example/Main");
    ExpectNoAnswer("DetachCurrentThread()");
    EXPECT_EQ(app.Log().Count("GetStaticMethodID(class com/example/Main, \"secondaryMain\""), 0u);
}

TEST_F(HandOff, WithoutTheArrayThereIsNoAnswer) {
    // The first array is the one for `main`.
    Script("throw NewObjectArray 2");
    ExpectNoAnswer("DetachCurrentThread()");
}

TEST_F(HandOff, WithoutAnAttachedThreadThereIsNoAnswer) {
    Script("attach = -1");
    ExpectNoAnswer("AttachCurrentThread() fails");
    EXPECT_EQ(app.Log().Count("FindClass("), app.Log().Count("FindClass(\"java/lang/String\")"));
}

TEST_F(HandOff, AnExceptionOfTheVoidFormIsDescribedAfterTheAnswer) {
    Script("secondaryMain = throw java/lang/IllegalStateException: boom");
    const auto first = StartFirst();
    EXPECT_EQ(Second(), 0);
    app.Log().WaitFor("DetachCurrentThread()");
    EXPECT_EQ(app.Log().Count("ExceptionDescribe()"), 1u);
    EndFirst(*first);
}

TEST_F(HandOff, AnExceptionOfTheIntFormIsDescribedAndAnsweredNevertheless) {
    Script(std::string(kOnlyInt) + "secondaryMain = throw java/lang/IllegalStateException: boom");
    const auto first = StartFirst();
    EXPECT_EQ(Second(), 0);
    app.Log().WaitFor("DetachCurrentThread()");
    EXPECT_EQ(app.Log().Count("ExceptionDescribe()"), 1u);
    EndFirst(*first);
}

TEST_F(HandOff, UnderAPolicyWithIbmTheThreadStaysAttached) {
    settings.Runtime(L"VM Provider", L"Any");
    Script(std::string(kOnlyInt) + "secondaryMain = return 3");
    const auto first = StartFirst();
    EXPECT_EQ(Second(), 3);
    EXPECT_EQ(Second(), 3);
    EXPECT_EQ(app.Log().Count("DetachCurrentThread()"), 0u);
    EndFirst(*first);
}

TEST_F(HandOff, ARequestDuringStartUpWaitsUntilMainIsAboutToBeCalled) {
    NamedEvent mayCreate;
    Script("on_create = wait_event " + mayCreate.utf8Name());
    const auto first = StartListeningFirst();
    const auto second = app.Launch(L"early");
    EXPECT_TRUE(WaitUntil([&] {
        return InstanceBlock::Open(app.Executable()).Arguments() == std::u16string(u"early\0", 5);
    }));
    app.Log().WaitFor("JNI_CreateJavaVM(");
    EXPECT_FALSE(second->HasEnded());
    EXPECT_FALSE(app.Log().Has("AttachCurrentThread()"));

    mayCreate.Set();
    EXPECT_EQ(second->ExitCode(), 0);
    EXPECT_THAT(SecondaryCalls(), ElementsAre(R"(["early"])"));
    // Everything before the call of `main` precedes the request.
    const auto texts = app.Log().Texts();
    const auto attach = std::find(texts.begin(), texts.end(), "AttachCurrentThread()");
    EXPECT_TRUE(std::any_of(texts.begin(), attach, [](const std::string& text) {
        return text.starts_with("NewObjectArray(");
    }));
    EndFirst(*first);
}

TEST_F(HandOff, AFirstInstanceThatFailsEndsTheWaitingLaunch) {
    Script("load_and_main = null\nno_class com/example/Main");
    const auto first = StartListeningFirst();
    const auto second = app.Launch(L"x");
    EXPECT_TRUE(
        WaitUntil([&] { return !InstanceBlock::Open(app.Executable()).Arguments().empty(); }));
    EXPECT_THAT(CloseErrorBox(*first), HasSubstr(L"com"));
    EXPECT_EQ(first->ExitCode(), -1);
    EXPECT_EQ(second->ExitCode(), -1);
}

TEST_F(HandOff, AFirstInstanceThatIsKilledEndsTheWaitWithItsCode) {
    Script("no_method secondaryMain");
    const auto first = StartFirst();
    const auto second = app.Launch(L"x");
    app.Log().WaitFor("DetachCurrentThread()");
    EXPECT_TRUE(TerminateProcess(first->handle(), 77));
    EXPECT_EQ(second->ExitCode(), 77);
}

TEST_F(HandOff, TheAnswerCountsEvenIfTheFirstInstanceThenEnds) {
    Script("secondaryMain = exit 55");
    const auto first = StartFirst();
    EXPECT_EQ(Second(), 0);
    EXPECT_EQ(first->ExitCode(), 55);
}

TEST_F(HandOff, RequestsRunInParallel) {
    NamedEvent mayReturn;
    Script("secondaryMain = wait_event " + mayReturn.utf8Name());
    const auto first = StartFirst();
    EXPECT_EQ(Second(L"one"), 0);
    EXPECT_EQ(Second(L"two"), 0);
    EXPECT_TRUE(WaitUntil([&] { return SecondaryCalls().size() == 2; }));
    EXPECT_THAT(SecondaryCalls(), ElementsAre(R"(["one"])", R"(["two"])"));
    EXPECT_EQ(app.Log().Count("DetachCurrentThread()"), 0u);
    mayReturn.Set();
    EndFirst(*first);
}

TEST_F(HandOff, WorksWhileTheExceptionDialogIsOpen) {
    settings.Application(L"Failure Check", L"Yes");
    app.WriteScript("main = throw java/lang/IllegalStateException: boom\n" + std::string(kOnlyInt) +
                    "secondaryMain = return 7");
    const auto first = Start();
    HWND const dialog = WaitForWindow(*first, L"#32770");
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(Second(L"a"), 7);
    EXPECT_TRUE(IsWindow(dialog));
    PressButton(dialog, IDOK);
    EXPECT_EQ(first->ExitCode(), 0);
    EXPECT_THAT(SecondaryCalls(), ElementsAre(R"(["a"])"));
}

}  // namespace
}  // namespace tarn::test
