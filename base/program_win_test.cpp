#include "base/program.h"

#include <gtest/gtest.h>

#include "base/paths.h"

namespace tarn {
namespace {

class ProgramTest : public testing::Test {
  protected:
    void TearDown() override { OverrideProgram(nullptr); }
};

TEST_F(ProgramTest, IsThisProcesssExecutableUnlessOverridden) {
    EXPECT_EQ(OverridingProgram(), nullptr);
    EXPECT_EQ(ProgramModule(), GetModuleHandleW(nullptr));
    const std::optional<std::wstring> own = ModulePath();
    const OtherProgram other{L"C:\\Apps\\other.exe", GetModuleHandleW(L"kernel32.dll")};
    OverrideProgram(&other);
    EXPECT_EQ(ProgramModule(), other.module);
    EXPECT_EQ(ModulePath(), other.path);
    EXPECT_EQ(ModuleFolder(), L"C:\\Apps\\");
    OverrideProgram(nullptr);
    EXPECT_EQ(ModulePath(), own);
}

TEST_F(ProgramTest, APathTooLongForItsOwnLaunchIsUnreadable) {
    OtherProgram other{std::wstring(MAX_PATH - 1, L'a'), nullptr};
    OverrideProgram(&other);
    EXPECT_EQ(ModulePath(), other.path);
    other.path += L'a';
    SetLastError(0);
    EXPECT_EQ(ModulePath(), std::nullopt);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
}

}  // namespace
}  // namespace tarn
