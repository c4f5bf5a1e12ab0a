#include "jvm/output_redirection.h"

#include <gtest/gtest.h>

#include <string>

#include "base/handles.h"
#include "base/windows.h"

namespace tarn {
namespace {

bool IsFolder(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool IsThere(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void MakeFile(const std::wstring& path) {
    const UniqueFile file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(file);
}

/// Creates an empty folder for each test and removes it afterwards.
class OutputFolders : public testing::Test {
  protected:
    void SetUp() override {
        wchar_t temp[MAX_PATH];
        ASSERT_NE(GetTempPathW(MAX_PATH, temp), 0U);
        folder_ = std::wstring(temp) + L"tarn-folders-" + std::to_wstring(GetCurrentProcessId());
        Remove(folder_);
        ASSERT_TRUE(CreateDirectoryW(folder_.c_str(), nullptr));
    }
    void TearDown() override { Remove(folder_); }

    static void Remove(const std::wstring& folder) {
        WIN32_FIND_DATAW found;
        const UniqueFindHandle search(FindFirstFileW((folder + L"\\*").c_str(), &found));
        while (search) {
            const std::wstring name = found.cFileName;
            const std::wstring path = folder + L"\\" + name;
            if (name != L"." && name != L"..") {
                if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
                    Remove(path);
                } else {
                    DeleteFileW(path.c_str());
                }
            }
            if (!FindNextFileW(search.get(), &found)) break;
        }
        RemoveDirectoryW(folder.c_str());
    }

    std::wstring folder_;
};

TEST_F(OutputFolders, AreCreatedLevelByLevel) {
    CreateOutputFolders(folder_ + L"\\a\\b\\c\\out.txt");
    EXPECT_TRUE(IsFolder(folder_ + L"\\a\\b\\c"));
    EXPECT_FALSE(IsThere(folder_ + L"\\a\\b\\c\\out.txt"));
}

TEST_F(OutputFolders, AreCreatedAtForwardSlashesToo) {
    std::wstring name = folder_ + L"\\x\\y\\out.txt";
    for (wchar_t& c : name) {
        if (c == L'\\') c = L'/';
    }
    CreateOutputFolders(name);
    EXPECT_TRUE(IsFolder(folder_ + L"\\x\\y"));
}

TEST_F(OutputFolders, AreCompletedWhereSomeExist) {
    ASSERT_TRUE(CreateDirectoryW((folder_ + L"\\a").c_str(), nullptr));
    CreateOutputFolders(folder_ + L"\\a\\b\\out.txt");
    EXPECT_TRUE(IsFolder(folder_ + L"\\a\\b"));
}

TEST_F(OutputFolders, AreCreatedAfterTheLongPathPrefix) {
    CreateOutputFolders(L"\\\\?\\" + folder_ + L"\\long\\out.txt");
    EXPECT_TRUE(IsFolder(folder_ + L"\\long"));
}

TEST_F(OutputFolders, AreCreatedForNamesWithSpacesAndInOtherAlphabets) {
    CreateOutputFolders(folder_ + L"\\my logs\\\u0416\u4e16\\out.txt");
    EXPECT_TRUE(IsFolder(folder_ + L"\\my logs\\\u0416\u4e16"));
}

TEST_F(OutputFolders, AreNotCreatedForARelativeName) {
    ASSERT_TRUE(SetCurrentDirectoryW(folder_.c_str()));
    CreateOutputFolders(L"relative\\out.txt");
    CreateOutputFolders(L"\\tarn-rooted\\out.txt");
    CreateOutputFolders(L"//tarn-server/share/out.txt");
    EXPECT_FALSE(IsThere(folder_ + L"\\relative"));
    EXPECT_FALSE(IsThere(L"\\tarn-rooted"));
    EXPECT_FALSE(IsThere(L"\\tarn-server"));
    ASSERT_TRUE(SetCurrentDirectoryW(L"C:\\"));
}

TEST_F(OutputFolders, FileThatExistsNeedsNone) {
    MakeFile(folder_ + L"\\out.txt");
    CreateOutputFolders(folder_ + L"\\out.txt");
    EXPECT_TRUE(IsThere(folder_ + L"\\out.txt"));
    EXPECT_FALSE(IsFolder(folder_ + L"\\out.txt"));
}

TEST_F(OutputFolders, FileWithAFoldersNameEndsTheCreation) {
    MakeFile(folder_ + L"\\a");
    CreateOutputFolders(folder_ + L"\\a\\b\\out.txt");
    EXPECT_FALSE(IsFolder(folder_ + L"\\a"));
    EXPECT_FALSE(IsThere(folder_ + L"\\a\\b"));
}

TEST_F(OutputFolders, MissingShareChangesNothing) {
    CreateOutputFolders(L"\\\\tarn-no-such-server\\share\\a\\out.txt");
    EXPECT_FALSE(IsThere(L"\\\\tarn-no-such-server\\share\\a"));
}

TEST_F(OutputFolders, HugeNamesStopAtTheFirstInvalidFolder) {
    for (const std::size_t length : {260U, 1'000U, 32'000U}) {
        std::wstring name = folder_ + L"\\deep";
        while (name.size() < length) name += L"\\0123456789";
        CreateOutputFolders(name);
        EXPECT_TRUE(IsFolder(folder_ + L"\\deep")) << length;
        Remove(folder_ + L"\\deep");
    }
    CreateOutputFolders(folder_ + L"\\" + std::wstring(32'000, L'x') + L"\\out.txt");
}

TEST_F(OutputFolders, InvalidPathsAreHarmless) {
    for (const wchar_t* name :
         {L"C:", L"::", L"\\\\", L"\\\\?", L"\\\\?\\", L"a:\\b*\\c|\\d", L"C:\\<>\\x"}) {
        CreateOutputFolders(name);
    }
    EXPECT_FALSE(IsThere(L"C:\\<>"));
}

}  // namespace
}  // namespace tarn
