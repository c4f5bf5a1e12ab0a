// Loading jvm.dll, the Java thread and its stack, and every result of JNI_CreateJavaVM.

#include "tests/support/fake_jvm_fixture.h"

namespace tarn::test {
namespace {

constexpr unsigned long long kMebibyte = 1024 * 1024;

class JvmCreation : public FakeJvmFixture {
  protected:
    /// The size of the stack on which the JVM was created, in address space.
    unsigned long long Stack() const {
        const std::string size = app.Log().After("stack ");
        return size.empty() ? 0 : std::stoull(size);
    }

    unsigned long long StackFor(std::wstring_view parameters, std::string_view script) {
        settings.Runtime(L"Virtual Machine Parameters", parameters);
        app.WriteScript(script);
        EXPECT_EQ(Run(), 0);
        return Stack();
    }

    bool QueriedDefault() const {
        return app.Log().Has("JNI_GetDefaultJavaVMInitArgs(version=0x10001, rest zero)");
    }
};

struct Refusal {
    const char* script;
    const wchar_t* reason;
};

class JvmRefusal : public FakeJvmFixture, public testing::WithParamInterface<Refusal> {};

TEST_P(JvmRefusal, IsReportedWithItsReason) {
    app.WriteScript(GetParam().script);
    EXPECT_EQ(
        RunWithErrorBox(std::wstring(L"JNI exception: failed to create the Java VM\nReason: ") +
                        GetParam().reason + L".\n"),
        -1);
    EXPECT_THAT(app.Log().Calls(), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, JvmRefusal,
                         testing::Values(Refusal{"create = -1", L"unknown"},
                                         Refusal{"create = -2", L"thread detached from VM"},
                                         Refusal{"create = -3", L"JNI version error"},
                                         Refusal{"create = -4", L"not enough memory"},
                                         Refusal{"create = -5", L"VM already created"},
                                         Refusal{"create = -6", L"invalid arguments"},
                                         Refusal{"create = -7", L""}, Refusal{"create = 1", L""}));

TEST_F(JvmCreation, HasItsOwnThread) {
    const auto process = Start();
    ASSERT_EQ(process->ExitCode(), 0);
    for (const FakeJvmLog::Line& line : app.Log().Lines()) {
        if (line.text.starts_with("JNI_CreateJavaVM")) {
            EXPECT_NE(line.thread, process->threadId());
        }
        if (line.text.starts_with("JNI_GetDefaultJavaVMInitArgs")) {
            EXPECT_EQ(line.thread, process->threadId());
        }
    }
}

TEST_F(JvmCreation, UsesTheStackSizeOfTheSettings) {
    EXPECT_EQ(StackFor(L"-Xss4m", "default_stack = 8388608"), 4 * kMebibyte);
    EXPECT_FALSE(QueriedDefault());
}

TEST_F(JvmCreation, TheLastStackSizeOfTheSettingsCounts) {
    EXPECT_EQ(StackFor(L"-Xss16m -Xss3072k", ""), 3 * kMebibyte);
}

TEST_F(JvmCreation, UsesTheDefaultStackSizeOfTheRuntime) {
    EXPECT_EQ(StackFor(L"", "default_stack = 5242880"), 5 * kMebibyte);
    EXPECT_TRUE(QueriedDefault());
}

TEST_F(JvmCreation, UsesTheDefaultWhenTheSettingIsNotANumber) {
    EXPECT_EQ(StackFor(L"-Xss8m -Xss1:2m", "default_stack = 5242880"), 5 * kMebibyte);
}

TEST_F(JvmCreation, UsesTheStackSizeOfTheExecutableWhenTheRuntimeHasNone) {
    EXPECT_EQ(StackFor(L"", "default_stack = 0"), kMebibyte);
    EXPECT_TRUE(QueriedDefault());
}

TEST_F(JvmCreation, UsesTheStackSizeOfTheExecutableWhenTheRuntimesIsNegative) {
    EXPECT_EQ(StackFor(L"", "default_stack = -1"), kMebibyte);
}

TEST_F(JvmCreation, NeverHasASmallerStackThanTheExecutable) {
    EXPECT_EQ(StackFor(L"-Xss64k", ""), kMebibyte);
}

TEST_F(JvmCreation, RunsOnTheEntryThreadWhenCreateThreadFails) {
    // More than any address space.
    settings.Runtime(L"Virtual Machine Parameters", L"-Xss1000000g");
    settings.Application(L"Application Type", L"service");
    const auto process = Start(L"a");
    EXPECT_EQ(process->ExitCode(), 0);
    EXPECT_EQ(MainArguments(), "[\"a\"]");
    for (const FakeJvmLog::Line& line : app.Log().Lines()) {
        EXPECT_EQ(line.thread, process->threadId()) << line.text;
    }
    EXPECT_EQ(app.Log().Calls().back(), "DestroyJavaVM()");
}

TEST_F(JvmCreation, FailsOnTheEntryThreadInTheSameWay) {
    settings.Runtime(L"Virtual Machine Parameters", L"-Xss1000000g");
    app.WriteScript("create = -4");
    EXPECT_EQ(RunWithErrorBox(
                  L"JNI exception: failed to create the Java VM\nReason: not enough memory.\n"),
              -1);
}

TEST_F(JvmCreation, SurvivesAFailedQueryOfTheDefaults) {
    EXPECT_EQ(StackFor(L"", "default_args = -3\ndefault_stack = 2097152"), 2 * kMebibyte);
}

}  // namespace
}  // namespace tarn::test
