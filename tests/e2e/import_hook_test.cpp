// Tests of the hook that counts and fails the launcher's calls.

#include <algorithm>

#include "tests/support/fake_jvm_fixture.h"
#include "tests/support/hook_log.h"

namespace tarn::test {
namespace {

using testing::Contains;
using testing::Field;
using testing::Not;

class ImportHook : public FakeJvmFixture {
  protected:
    std::int32_t RunHooked(std::wstring_view failures = {}) {
        app.WriteSettings(settings);
        return StartHooked(app, failures)->ExitCode().value_or(kNoExitCode);
    }

    std::vector<HookedCall> Calls(std::string_view function) const {
        std::vector<HookedCall> calls;
        for (const HookedCall& each : ReadHookLog(HookLogFile(app))) {
            if (each.function == function) calls.push_back(each);
        }
        return calls;
    }
};

TEST_F(ImportHook, LogsTheCallsWithoutAnEffectOnTheLaunch) {
    app.WriteScript("main = exit 7");
    EXPECT_EQ(RunHooked(), 7);
    const auto calls = ReadHookLog(HookLogFile(app));
    ASSERT_FALSE(calls.empty());
    EXPECT_FALSE(Calls("GetPrivateProfileStringW").empty());
    EXPECT_THAT(calls, Not(Contains(Field(&HookedCall::failed, true))));
    const auto created = Calls("CreateThread");
    ASSERT_EQ(created.size(), 1U);
    EXPECT_EQ(created[0].role, 1U);
    EXPECT_EQ(created[0].number, 1U);
    EXPECT_EQ(created[0].library, "KERNEL32.dll");
    // An address in the program, not in a library.
    EXPECT_LT(created[0].place, 0x100000U);
    EXPECT_GT(created[0].place, 0x1000U);
}

TEST_F(ImportHook, CountsFromOneInEveryThread) {
    EXPECT_EQ(RunHooked(), 0);
    unsigned number = 0;
    for (const HookedCall& each : Calls("GetPrivateProfileStringW")) {
        EXPECT_EQ(each.role, 1U);
        EXPECT_EQ(each.number, ++number);
    }
    EXPECT_GT(number, 5U);
}

TEST_F(ImportHook, FailsTheSpecifiedCall) {
    EXPECT_EQ(RunHooked(L"LoadLibraryW:2;CreateThread:1:8"), 0);
    const auto created = Calls("CreateThread");
    ASSERT_EQ(created.size(), 1U);
    EXPECT_TRUE(created[0].failed);
    // The entry thread then runs the application.
    EXPECT_EQ(MainArguments(), "[]");
}

TEST_F(ImportHook, SetsTheLastErrorOfTheFailure) {
    app.WriteSettings(settings);
    const auto process = StartHooked(app, L"LoadLibraryW:1+:1114");
    EXPECT_EQ(ToUtf8(CloseErrorBox(*process)),
              ToUtf8(L"Failed to load Java VM library: " + app.Path(L"jre") +
                     L"\\bin\\server\\jvm.dll (errno = 1114).\n"));
    EXPECT_EQ(process->ExitCode(), -1);
}

TEST_F(ImportHook, ReturnsTheSpecifiedResult) {
    app.WriteSettings(settings);
    // The length equals the buffer's size, as for a truncated path.
    const auto process = StartHooked(app, L"GetModuleFileNameW:1:0:260");
    EXPECT_EQ(ToUtf8(CloseErrorBox(*process)),
              "Windows exception: failed to get the module path (errno = 122).\n");
    EXPECT_EQ(process->ExitCode(), -1);
}

}  // namespace
}  // namespace tarn::test
