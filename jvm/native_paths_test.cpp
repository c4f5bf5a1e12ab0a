#include "jvm/native_paths.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

constexpr wchar_t kLibrary[] = L"C:\\jre\\bin\\server\\jvm.dll";

TEST(NativePathsTest, TheLibraryPathFollowsTheSettingWithoutASeparator) {
    EXPECT_EQ(LibraryPathValue(L"native", L"C:\\App\\", kLibrary),
              L"nativeC:\\App\\;.;%Path%C:\\jre\\lib");
    EXPECT_EQ(LibraryPathValue(L"C:\\n;", L"C:\\App\\", kLibrary),
              L"C:\\n;C:\\App\\;.;%Path%C:\\jre\\lib");
}

TEST(NativePathsTest, ALibraryWithoutFoldersHasNoRuntimeFolder) {
    EXPECT_EQ(LibraryPathValue(L"n", L"C:\\App\\", L"jvm.dll"), L"nC:\\App\\;.;%Path%lib");
    EXPECT_EQ(LibraryPathValue(L"n", L"C:\\App\\", L"bin\\server\\jvm.dll"),
              L"nC:\\App\\;.;%Path%lib");
}

TEST(NativePathsTest, ThePathEndsWithTheRuntimesBinFolder) {
    EXPECT_EQ(ProcessPathValue(L"", kLibrary), L"%Path%;C:\\jre\\bin");
    EXPECT_EQ(ProcessPathValue(L"C:\\a", kLibrary), L"C:\\a;%Path%;C:\\jre\\bin");
    EXPECT_EQ(ProcessPathValue(L"C:\\a;", kLibrary), L"C:\\a;%Path%;C:\\jre\\bin");
}

}  // namespace
}  // namespace tarn
