#include "base/dynamic_library.h"

#include <gtest/gtest.h>

#include <string>

namespace tarn {
namespace {

TEST(SystemLibraryTest, LoadsFromTheSystemFolder) {
    const HMODULE library = LoadSystemLibrary(L"version.dll");
    ASSERT_NE(library, nullptr);
    wchar_t path[MAX_PATH];
    const DWORD length = GetModuleFileNameW(library, path, MAX_PATH);
    wchar_t folder[MAX_PATH];
    GetSystemDirectoryW(folder, MAX_PATH);
    EXPECT_EQ(_wcsicmp(std::wstring(path, length).c_str(),
                       (std::wstring(folder) + L"\\version.dll").c_str()),
              0);
}

TEST(SystemLibraryTest, AFileOfThatNameElsewhereIsNotLoaded) {
    wchar_t folder[MAX_PATH];
    ASSERT_NE(GetTempPathW(MAX_PATH, folder), 0u);
    wchar_t before[MAX_PATH];
    GetCurrentDirectoryW(MAX_PATH, before);
    ASSERT_TRUE(SetCurrentDirectoryW(folder));
    // A real library under a name that the system folder does not have.
    wchar_t system[MAX_PATH];
    GetSystemDirectoryW(system, MAX_PATH);
    const wchar_t* const planted = L"tarn_planted.dll";
    ASSERT_TRUE(CopyFileW((std::wstring(system) + L"\\version.dll").c_str(), planted, FALSE));

    EXPECT_EQ(LoadSystemLibrary(planted), nullptr);

    DeleteFileW(planted);
    SetCurrentDirectoryW(before);
}

TEST(HardErrorSuppressionTest, CoversItsOwnLifetimeOnly) {
    ASSERT_TRUE(SetThreadErrorMode(SEM_NOOPENFILEERRORBOX, nullptr));
    {
        const HardErrorSuppression suppression;
        EXPECT_EQ(GetThreadErrorMode(), DWORD{SEM_NOOPENFILEERRORBOX | SEM_FAILCRITICALERRORS});
    }
    EXPECT_EQ(GetThreadErrorMode(), DWORD{SEM_NOOPENFILEERRORBOX});
    ASSERT_TRUE(SetThreadErrorMode(0, nullptr));
}

TEST(HardErrorSuppressionTest, KeepsTheLastErrorOfAFailedLoad) {
    {
        const HardErrorSuppression suppression;
        SetLastError(ERROR_BAD_EXE_FORMAT);
    }
    EXPECT_EQ(GetLastError(), DWORD{ERROR_BAD_EXE_FORMAT});
}

TEST(SystemLibraryTest, FindsAnExportedFunctionAndNoOther) {
    using TickCount = DWORD(WINAPI*)();
    const HMODULE kernel = LoadSystemLibrary(L"kernel32.dll");
    const auto tickCount = FindFunction<TickCount>(kernel, "GetTickCount");
    ASSERT_NE(tickCount, nullptr);
    EXPECT_NE(tickCount(), 0u);
    EXPECT_EQ(FindFunction<TickCount>(kernel, "NoSuchFunction"), nullptr);
    EXPECT_EQ(FindFunction<TickCount>(nullptr, "GetTickCount"), nullptr);
}

}  // namespace
}  // namespace tarn
