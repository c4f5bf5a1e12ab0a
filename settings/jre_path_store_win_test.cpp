#include "settings/jre_path_store.h"

#include <gtest/gtest.h>

#include <vector>

#include "base/paths.h"
#include "base/text.h"
#include "settings/ini_file.h"
#include "settings/ini_file_fixture.h"

namespace tarn {
namespace {

using namespace std::string_view_literals;

// "C:\<Japanese> jre\", which fits no code page of the tests' machines.
constexpr wchar_t kJapaneseFolder[] = L"C:\\\u65E5\u672C jre\\";
constexpr char kSettings[] =
    "; a comment\r\n[Other]\r\nA=1\r\nB = \"two \"\r\n\r\n[Java Runtime Environment]\r\n"
    "JVM Type=x\r\nJRE Path=C:\\gone\r\n[Last]\r\nC=\xE9\xFC\r\nno value\r\n";

class JrePathStoreTest : public IniFileFixture {
  protected:
    std::wstring JrePath() const { return Value(L"Java Runtime Environment", L"JRE Path"); }
    std::wstring Value(const wchar_t* section, const wchar_t* key) const {
        return IniFile(path_).GetValue(section, key);
    }
    std::string Bytes() const { return BytesOf(path_); }
    static std::string BytesOf(const std::wstring& path) {
        const UniqueFile file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                          OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        std::string bytes(2 * kMaxConvertedSize, '\0');
        DWORD read = 0;
        EXPECT_TRUE(
            ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr));
        bytes.resize(read);
        return bytes;
    }
    /// Whether the file that is written beside the settings file is still there.
    bool LeavesAFileBehind() const {
        return FileExists(path_ + std::to_wstring(GetCurrentProcessId()));
    }
    static std::wstring FromAnsi(const char* text) {
        std::wstring wide(64, L'\0');
        const int size = MultiByteToWideChar(CP_ACP, 0, text, -1, wide.data(), 64);
        wide.resize(static_cast<std::size_t>(size - 1));
        return wide;
    }
};

TEST_F(JrePathStoreTest, AFolderInTheCodePageKeepsAnEightBitFile) {
    Write(kSettings);
    WriteJrePath(path_, L"C:\\jre\\");
    EXPECT_EQ(JrePath(), L"C:\\jre\\");
    EXPECT_EQ(Bytes().substr(0, 11), "; a comment");
}

TEST_F(JrePathStoreTest, AFolderOutsideTheCodePageMakesAnEightBitFileUtf16) {
    Write(kSettings);
    WriteJrePath(path_, kJapaneseFolder);
    EXPECT_EQ(JrePath(), kJapaneseFolder);
    EXPECT_EQ(Bytes().substr(0, 4), std::string("\xFF\xFE;\0", 4));
    EXPECT_FALSE(LeavesAFileBehind());
}

TEST_F(JrePathStoreTest, ConversionKeepsEveryOtherValue) {
    Write(kSettings);
    WriteJrePath(path_, kJapaneseFolder);
    EXPECT_EQ(Value(L"Other", L"A"), L"1");
    EXPECT_EQ(Value(L"Other", L"B"), L"two ");
    EXPECT_EQ(Value(L"Java Runtime Environment", L"JVM Type"), L"x");
    EXPECT_EQ(Value(L"Last", L"C"), FromAnsi("\xE9\xFC"));
    EXPECT_EQ(IniFile(path_).GetSectionNames(),
              (std::vector<std::wstring>{L"Other", L"Java Runtime Environment", L"Last"}));
}

TEST_F(JrePathStoreTest, ConversionKeepsEveryByteOfTheCodePage) {
    std::string bytes = "[A]\r\nk=";
    for (int c = 0x21; c <= 0xFF; ++c) bytes += static_cast<char>(c);
    Write(bytes + "\r\n");
    const std::wstring before = Value(L"A", L"k");
    WriteJrePath(path_, kJapaneseFolder);
    EXPECT_EQ(Value(L"A", L"k"), before);
    EXPECT_EQ(JrePath(), kJapaneseFolder);
}

TEST_F(JrePathStoreTest, ASimilarLetterOfTheCodePageDoesNotReplaceTheFolders) {
    Write(kSettings);
    WriteJrePath(path_, L"C:\\\u0101\u2260\\");
    EXPECT_EQ(JrePath(), L"C:\\\u0101\u2260\\");
}

TEST_F(JrePathStoreTest, AnEmptyFileBecomesUtf16) {
    WriteJrePath(path_, kJapaneseFolder);
    EXPECT_EQ(JrePath(), kJapaneseFolder);
}

TEST_F(JrePathStoreTest, AMissingFileIsCreated) {
    DeleteFileW(path_.c_str());
    WriteJrePath(path_, kJapaneseFolder);
    EXPECT_EQ(JrePath(), kJapaneseFolder);
}

TEST_F(JrePathStoreTest, AUtf16FileIsWrittenInPlace) {
    Write(std::string("\xFF\xFE[\0A\0]\0\r\0\n\0k\0=\0\x2C\x67\r\0\n\0", 22));
    WriteJrePath(path_, kJapaneseFolder);
    EXPECT_EQ(JrePath(), kJapaneseFolder);
    EXPECT_EQ(Value(L"A", L"k"), L"\u672C");
}

TEST_F(JrePathStoreTest, AFileWithTheMarkOfUtf8KeepsItsValues) {
    Write("\xEF\xBB\xBF\r\n[A]\r\nk=\xC3\xA9\r\n");
    const std::wstring before = Value(L"A", L"k");
    WriteJrePath(path_, kJapaneseFolder);
    EXPECT_EQ(JrePath(), kJapaneseFolder);
    EXPECT_EQ(Value(L"A", L"k"), before);
}

TEST_F(JrePathStoreTest, AFileOverTheLimitIsNotChanged) {
    const std::string bytes = "[A]\r\nk=1\r\n;" + std::string(kMaxConvertedSize, 'x');
    Write(bytes);
    WriteJrePath(path_, kJapaneseFolder);
    EXPECT_EQ(Bytes(), bytes);
    EXPECT_FALSE(LeavesAFileBehind());
}

TEST_F(JrePathStoreTest, AReadOnlyFileIsNotChanged) {
    Write(kSettings);
    SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_READONLY);
    const DWORD before = GetFileAttributesW(path_.c_str());
    WriteJrePath(path_, kJapaneseFolder);
    EXPECT_EQ(Bytes(), kSettings);
    EXPECT_EQ(GetFileAttributesW(path_.c_str()), before);
    EXPECT_FALSE(LeavesAFileBehind());
    SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(JrePathStoreTest, AFileOpenInAnotherProgramIsNotChanged) {
    Write(kSettings);
    {
        const UniqueFile other(CreateFileW(path_.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                           OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        ASSERT_TRUE(other);
        WriteJrePath(path_, kJapaneseFolder);
    }
    EXPECT_EQ(Bytes(), kSettings);
    EXPECT_FALSE(LeavesAFileBehind());
}

TEST_F(JrePathStoreTest, AForeignFileInTheWayOfTheNewOneIsNotOverwritten) {
    Write(kSettings);
    const std::wstring foreign = path_ + std::to_wstring(GetCurrentProcessId());
    ASSERT_TRUE(CopyFileW(path_.c_str(), foreign.c_str(), TRUE));
    WriteJrePath(path_, kJapaneseFolder);
    EXPECT_EQ(Bytes(), kSettings);
    EXPECT_EQ(BytesOf(foreign), kSettings);
    DeleteFileW(foreign.c_str());
}

TEST_F(JrePathStoreTest, ConversionKeepsTheAttributes) {
    Write(kSettings);
    const DWORD hidden = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_ARCHIVE;
    SetFileAttributesW(path_.c_str(), hidden);
    const DWORD before = GetFileAttributesW(path_.c_str());
    WriteJrePath(path_, kJapaneseFolder);
    EXPECT_EQ(JrePath(), kJapaneseFolder);
    EXPECT_EQ(GetFileAttributesW(path_.c_str()), before);
}

TEST_F(JrePathStoreTest, AFolderMayBeWrittenWithSlashes) {
    Write(kSettings);
    WriteJrePath(ReplaceAll(path_, L'\\', L'/'), kJapaneseFolder);
    EXPECT_EQ(JrePath(), kJapaneseFolder);
    EXPECT_EQ(Value(L"Other", L"A"), L"1");
}

TEST_F(JrePathStoreTest, ANameWithoutAFolderCreatesNothingInTheCurrentDirectory) {
    wchar_t before[MAX_PATH];
    wchar_t folder[MAX_PATH];
    ASSERT_NE(GetCurrentDirectoryW(MAX_PATH, before), 0u);
    ASSERT_NE(GetTempPathW(MAX_PATH, folder), 0u);
    ASSERT_TRUE(SetCurrentDirectoryW(folder));
    const std::wstring name = L"tarn" + std::to_wstring(GetCurrentProcessId()) + L".ini";
    WriteJrePath(name, kJapaneseFolder);
    EXPECT_FALSE(FileExists(std::wstring(folder) + name));
    GetWindowsDirectoryW(folder, MAX_PATH);
    EXPECT_TRUE(DeleteFileW((std::wstring(folder) + L"\\" + name).c_str()));
    SetCurrentDirectoryW(before);
}

TEST(IsAnsiTextTest, TextWithoutAMarkIsInTheCodePage) {
    EXPECT_TRUE(IsAnsiText(""));
    EXPECT_TRUE(IsAnsiText("[A]\r\nk=\xE9\r\n"));
    EXPECT_TRUE(IsAnsiText(";\xEF\xBB\xBF"));
}

TEST(IsAnsiTextTest, AByteOrderMarkSaysOtherwise) {
    EXPECT_FALSE(IsAnsiText("\xFF\xFE"));
    EXPECT_FALSE(IsAnsiText("\xFF\xFE[\0A\0]\0"sv));
    EXPECT_FALSE(IsAnsiText("\xFE\xFF\0[\0A\0]"sv));
    EXPECT_FALSE(IsAnsiText("\xEF\xBB\xBF[A]\r\n"));
}

TEST(IsAnsiTextTest, NullCharactersAreNotInTheCodePage) {
    EXPECT_FALSE(IsAnsiText("[A]\r\nk=\0\r\n"sv));
    EXPECT_FALSE(IsAnsiText("[\0A\0]\0"sv));
}

}  // namespace
}  // namespace tarn
