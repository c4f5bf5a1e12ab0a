#include "ui/splash/native_splash.h"

#include <gtest/gtest.h>

#include "base/windows.h"

namespace tarn {
namespace {

// A runtime folder whose splash library is a real library without any of the entry points.
class NativeSplashTest : public testing::Test {
  protected:
    NativeSplashTest() {
        wchar_t folder[MAX_PATH];
        GetTempPathW(MAX_PATH, folder);
        bin_ = std::wstring(folder) + L"tarn_bin_" + std::to_wstring(GetCurrentProcessId());
        CreateDirectoryW(bin_.c_str(), nullptr);
    }
    ~NativeSplashTest() override {
        // The launcher does not unload the library, so the test does, because its file must be
        // deleted.
        if (const HMODULE library = GetModuleHandleW(L"splashscreen.dll")) FreeLibrary(library);
        DeleteFileW((bin_ + L"\\splashscreen.dll").c_str());
        RemoveDirectoryW(bin_.c_str());
    }

    void AddLibraryWithoutEntryPoints() {
        wchar_t system[MAX_PATH];
        GetSystemDirectoryW(system, MAX_PATH);
        ASSERT_TRUE(CopyFileW((std::wstring(system) + L"\\version.dll").c_str(),
                              (bin_ + L"\\splashscreen.dll").c_str(), FALSE));
    }

    bool Start(bool wanted) {
        return StartNativeSplash(L"picture.png", wanted, bin_ + L"\\server\\jvm.dll", action_);
    }

    std::wstring bin_;
    OneShotAction action_;
};

TEST_F(NativeSplashTest, IsMissingWithoutALibrary) {
    EXPECT_FALSE(Start(true));
    EXPECT_EQ(action_.held(), nullptr);
}

TEST_F(NativeSplashTest, IsMissingForALibraryPathWithoutFolders) {
    EXPECT_FALSE(StartNativeSplash(L"picture.png", true, L"jvm.dll", action_));
}

TEST_F(NativeSplashTest, IsNotLoadedUnlessWanted) {
    AddLibraryWithoutEntryPoints();
    EXPECT_FALSE(Start(false));
    EXPECT_EQ(GetModuleHandleW(L"splashscreen.dll"), nullptr);
}

TEST_F(NativeSplashTest, IgnoresALibraryThatLacksTheEntryPoints) {
    AddLibraryWithoutEntryPoints();
    EXPECT_FALSE(Start(true));
    EXPECT_NE(GetModuleHandleW(L"splashscreen.dll"), nullptr);
    EXPECT_EQ(action_.held(), nullptr);
}

TEST_F(NativeSplashTest, IgnoresALibraryThatCannotBeLoaded) {
    const std::wstring text = bin_ + L"\\splashscreen.dll";
    ASSERT_TRUE(WritePrivateProfileStringW(L"not", L"a", L"library", text.c_str()));
    EXPECT_FALSE(Start(true));
    EXPECT_EQ(GetModuleHandleW(L"splashscreen.dll"), nullptr);
}

}  // namespace
}  // namespace tarn
