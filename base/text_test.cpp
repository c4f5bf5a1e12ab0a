#include "base/text.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

using Pieces = std::vector<std::wstring>;

TEST(TextTest, JoinsTextsWithNothingBetweenThem) {
    const std::wstring folder = L"C:\\app\\";
    EXPECT_EQ(Concat({folder, L"", std::wstring_view(L"lib and more", 3)}), L"C:\\app\\lib");
    EXPECT_EQ(Concat({}), L"");
}

TEST(TextTest, ComparesAsciiLettersWithoutCaseAndNothingElse) {
    EXPECT_TRUE(EqualsIgnoringCase(L"Yes", L"yES"));
    EXPECT_TRUE(EqualsIgnoringCase(L"", L""));
    EXPECT_FALSE(EqualsIgnoringCase(L"Yes", L"Yes "));
    EXPECT_FALSE(EqualsIgnoringCase(L"Ye", L"Yes"));
    // A Kelvin sign is no k and a dotless i is no i, whatever the user's locale says.
    EXPECT_FALSE(EqualsIgnoringCase(L"jroc\u212Ait", L"jrockit"));
    EXPECT_FALSE(EqualsIgnoringCase(L"\u0131bm", L"ibm"));
    EXPECT_FALSE(EqualsIgnoringCase(L"\u00C9", L"\u00E9"));
}

TEST(TextTest, TrimsWhiteSpaceOfEveryKindAtBothEnds) {
    EXPECT_EQ(TrimWhiteSpace(L" \t\r\n\v\fa b\t "), L"a b");
    EXPECT_EQ(TrimWhiteSpace(L" \t "), L"");
    EXPECT_EQ(TrimWhiteSpace(L""), L"");
}

TEST(TextTest, ReplacesEachOccurrence) {
    EXPECT_EQ(ReplaceAll(L"com.example.Main", L'.', L'/'), L"com/example/Main");
    EXPECT_EQ(ReplaceAll(L"", L'.', L'/'), L"");
}

TEST(TextTest, CutsAtTheLastMarkOrNotAtAll) {
    EXPECT_EQ(CutAtLast(L"C:\\jre\\bin", L'\\'), L"C:\\jre");
    EXPECT_EQ(CutAtLast(L"\\bin", L'\\'), L"");
    EXPECT_EQ(CutAtLast(L"bin", L'\\'), L"bin");
}

TEST(TextTest, AddsAnEndingOnlyWhenItIsMissing) {
    EXPECT_EQ(EnsureTrailing(L"C:\\jre", L'\\'), L"C:\\jre\\");
    EXPECT_EQ(EnsureTrailing(L"C:\\jre\\", L'\\'), L"C:\\jre\\");
    EXPECT_EQ(EnsureTrailing(L"", L'\\'), L"\\");
}

TEST(TextTest, SplitsAtEachSeparatorKeepingEmptyPieces) {
    EXPECT_EQ(Split(L"", L';'), Pieces{});
    EXPECT_EQ(Split(L"1.8", L';'), Pieces{L"1.8"});
    EXPECT_EQ(Split(L" 1.7 ;;1.8;", L';'), (Pieces{L" 1.7 ", L"", L"1.8", L""}));
}

TEST(TextTest, TellsAbsolutePaths) {
    EXPECT_TRUE(IsAbsolutePath(L"C:\\a"));
    EXPECT_TRUE(IsAbsolutePath(L"c:"));
    EXPECT_TRUE(IsAbsolutePath(L"\\\\server\\share"));
    EXPECT_FALSE(IsAbsolutePath(L"\\a"));
    EXPECT_FALSE(IsAbsolutePath(L"a"));
    EXPECT_FALSE(IsAbsolutePath(L""));
    EXPECT_FALSE(IsAbsolutePath(L"//server/share"));
}

TEST(TextTest, FindsTheFolderOfAFile) {
    EXPECT_EQ(FolderOf(L"C:\\Apps\\sample.exe"), L"C:\\Apps\\");
    EXPECT_EQ(FolderOf(L"sample.exe"), L"");
}

}  // namespace
}  // namespace tarn
