// The exit codes of the launcher when memory runs out or an index is out of range.

#include <gtest/gtest.h>

#include "tests/support/launched_process.h"
#include "tests/support/paths.h"

namespace tarn::test {
namespace {

std::optional<std::int32_t> CodeOf(const wchar_t* deed) {
    Start start;
    start.program = GetPaths().programs + L"\\fatal_probe.exe";
    start.commandLine = std::wstring(L"fatal_probe.exe ") + deed;
    return LaunchedProcess(start).ExitCode();
}

constexpr auto kOutOfMemory = static_cast<std::int32_t>(0x80004005);
constexpr auto kBadIndex = static_cast<std::int32_t>(0x80070057);

TEST(FatalCode, ForALackOfMemory) {
    EXPECT_EQ(CodeOf(L"allocation"), kOutOfMemory);
    EXPECT_EQ(CodeOf(L"new"), kOutOfMemory);
}

TEST(FatalCode, ForALengthBeyondAnyMemory) {
    EXPECT_EQ(CodeOf(L"length"), kOutOfMemory);
}

TEST(FatalCode, ForAnIndexOutOfRange) {
    EXPECT_EQ(CodeOf(L"index"), kBadIndex);
    EXPECT_EQ(CodeOf(L"substring"), kBadIndex);
    EXPECT_EQ(CodeOf(L"vector"), kBadIndex);
}

TEST(FatalCode, IsUsedForNothingElse) {
    EXPECT_EQ(CodeOf(L"ok"), 4);
}

}  // namespace
}  // namespace tarn::test
