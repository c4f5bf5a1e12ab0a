// Hand-offs to applications that run on real Java runtimes.

#include "tests/support/instance_block.h"
#include "tests/support/real_runtime_fixture.h"

namespace tarn::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class RealHandOff : public EachRuntimeFixture {
  protected:
    static constexpr std::int32_t kFirstCode = 9;

    RealHandOff() : mayEnd_(NewFilePath(L"may-end")) {
        settings.Application(L"Single Instance", L"yes");
    }

    /// Starts the class, whose `main` continues until the test lets it end, and waits until it
    /// runs.
    std::unique_ptr<LaunchedProcess> StartFirst(std::wstring_view mainClass) {
        settings.Runtime(L"Main Class", mainClass);
        auto first = Start(L"\"do:await:" + mayEnd_ + L"\" do:exit:" + std::to_wstring(kFirstCode));
        Report().WaitFor("argumentCount", L"2");
        return first;
    }

    std::optional<std::int32_t> Second(std::wstring_view argumentText = {}) const {
        return app.Launch(argumentText)->ExitCode();
    }

    void EndFirst(const LaunchedProcess& first) {
        app.AddFile(L"may-end");
        EXPECT_EQ(first.ExitCode(), kFirstCode);
        // Exactly one of the launches has run `main`.
        EXPECT_EQ(Report().All("argumentCount").size(), 1u);
    }

  private:
    std::wstring mayEnd_;
};

// The oldest and the newest; both methods are tested on all.
INSTANTIATE_TEST_SUITE_P(Java, RealHandOff, testing::Values("11", "25"), RuntimeName);

class RealHandOffForms : public RealHandOff {};
INSTANTIATE_TEST_SUITE_P(Java, RealHandOffForms, kAllRuntimes, RuntimeName);

TEST_P(RealHandOffForms, TheVoidFormReceivesTheArguments) {
    const auto first = StartFirst(L"fixture.SecondVoid");
    EXPECT_EQ(Second(L"a \"b c\" \u00E4\u4E2D \U0001F600 -nosplash"), 0);
    Report().WaitFor("secondEnd", L"0");
    EXPECT_EQ(Report().One("second"), L"a|b c|\u00E4\u4E2D|\U0001F600|-nosplash");
    EndFirst(*first);
}

TEST_P(RealHandOff, TheVoidFormAnswersBeforeItReturns) {
    const auto first = StartFirst(L"fixture.SecondVoid");
    EXPECT_EQ(Second(L"\"do:await:" + NewFilePath(L"go") + L'"'), 0);
    EXPECT_THAT(Report().All("secondEnd"), IsEmpty());
    app.AddFile(L"go");
    Report().WaitFor("secondEnd", L"0");
    EndFirst(*first);
}

TEST_P(RealHandOffForms, TheIntFormsResultIsTheExitCode) {
    const auto first = StartFirst(L"fixture.SecondInt");
    for (const std::int32_t result : {0, 7, -1, 2147483647}) {
        EXPECT_EQ(Second(L"return:" + std::to_wstring(result)), result);
    }
    EXPECT_EQ(Second(), 0);
    EXPECT_THAT(Report().All("secondEnd"), ElementsAre(L"0", L"7", L"-1", L"2147483647", L"0"));
    EndFirst(*first);
}

TEST_P(RealHandOff, TheIntFormMakesTheSecondLaunchWait) {
    const auto first = StartFirst(L"fixture.SecondInt");
    const auto second = app.Launch(L"return:4 \"do:await:" + NewFilePath(L"go") + L'"');
    EXPECT_TRUE(WaitUntil([&] { return !Report().All("second").empty(); }));
    EXPECT_FALSE(second->HasEnded());
    app.AddFile(L"go");
    EXPECT_EQ(second->ExitCode(), 4);
    EndFirst(*first);
}

TEST_P(RealHandOff, WithoutTheMethodTheSecondLaunchEndsWithTheFirst) {
    const auto first = StartFirst(L"fixture.Application");
    const auto second = app.Launch(L"x");
    EXPECT_TRUE(
        WaitUntil([&] { return StandardError().find("NoSuchMethodError") != std::string::npos; }));
    EXPECT_FALSE(second->HasEnded());
    EndFirst(*first);
    EXPECT_EQ(second->ExitCode(), kFirstCode);
}

TEST_P(RealHandOff, AnExceptionIsDescribedAndTheApplicationContinues) {
    const auto first = StartFirst(L"fixture.SecondInt");
    EXPECT_EQ(Second(L"\"do:throw:out of the second\""), 0);
    EXPECT_TRUE(
        WaitUntil([&] { return StandardError().find("out of the second") != std::string::npos; }));
    EXPECT_THAT(StandardError(), HasSubstr("fixture.SecondInt.secondaryMain"));
    EXPECT_EQ(Second(L"return:3"), 3);
    EndFirst(*first);
}

TEST_P(RealHandOff, ARequestDuringStartUpIsAnswered) {
    settings.Runtime(L"Main Class", L"fixture.SecondInt");
    const auto first = Start(L"\"do:await:" + NewFilePath(L"go") + L"\" do:exit:9");
    EXPECT_TRUE(WaitUntil([&] {
        const InstanceBlock block = InstanceBlock::Open(app.Executable());
        return block && block.Number(InstanceBlock::kMessage) != 0 &&
               PostThreadMessageW(block.Number(InstanceBlock::kListenerThread), WM_NULL, 0, 0);
    }));
    const auto second = app.Launch(L"early return:6");
    EXPECT_EQ(second->ExitCode(), 6);
    EXPECT_EQ(Report().One("second"), L"early|return:6");
    app.AddFile(L"go");
    EXPECT_EQ(first->ExitCode(), 9);
}

TEST_P(RealHandOff, SecondaryMainMayEndTheApplication) {
    const auto first = StartFirst(L"fixture.SecondInt");
    EXPECT_EQ(Second(L"do:exit:21"), 21);
    EXPECT_EQ(first->ExitCode(), 21);
}

TEST_P(RealHandOff, WorksWhileTheExceptionDialogIsOpen) {
    settings.Application(L"Failure Check", L"Yes");
    settings.Runtime(L"Main Class", L"fixture.SecondInt");
    const auto first = Start(L"do:throw:boom");
    HWND const dialog = WaitForWindow(*first, L"#32770");
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(WindowText(dialog), L"Java Exception");
    EXPECT_EQ(Second(L"return:8"), 8);
    EXPECT_TRUE(IsWindow(dialog));
    PressButton(dialog, IDOK);
    EXPECT_EQ(first->ExitCode(), 0);
}

TEST_P(RealHandOff, UnderAPolicyWithIbmTheAnswersAreTheSame) {
    settings.Runtime(L"VM Provider", L"any");
    const auto first = StartFirst(L"fixture.SecondInt");
    EXPECT_EQ(Second(L"return:5"), 5);
    EXPECT_EQ(Second(L"return:6"), 6);
    EndFirst(*first);
}

}  // namespace
}  // namespace tarn::test
