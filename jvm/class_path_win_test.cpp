#include "jvm/class_path.h"

#include <gtest/gtest.h>

#include "base/windows.h"

namespace tarn {
namespace {

TEST(ExpandClassPath, CopiesLiteralEntriesWithoutASearch) {
    EXPECT_EQ(ExpandClassPath(L"C:\\no such\\a.jar;\\\\server\\b.jar", L"C:\\App\\"),
              L"C:\\no such\\a.jar;\\\\server\\b.jar;");
}

TEST(ExpandClassPath, ExpandsVariablesFirst) {
    ASSERT_TRUE(SetEnvironmentVariableW(L"TARN_TEST", L"C:\\lib"));
    EXPECT_EQ(ExpandClassPath(L"%TARN_TEST%\\a.jar", L"C:\\App\\"), L"C:\\lib\\a.jar;");
    SetEnvironmentVariableW(L"TARN_TEST", nullptr);
}

TEST(ExpandClassPath, JoinsRelativeEntriesToTheLaunchersFolder) {
    wchar_t folder[MAX_PATH];
    const UINT length = GetSystemDirectoryW(folder, MAX_PATH);
    const std::wstring system = std::wstring(folder, length) + L'\\';
    EXPECT_EQ(ExpandClassPath(L"kernel32.dll", system), system + L"kernel32.dll;");
    EXPECT_EQ(ExpandClassPath(L"kernel32.d*l", system), system + L"kernel32.dll;");
}

TEST(ExpandClassPath, DropsEntriesWithoutAMatch) {
    EXPECT_EQ(ExpandClassPath(L"no such.jar;lib\\*.jar;;", L"C:\\no such\\"), L"");
}

}  // namespace
}  // namespace tarn
