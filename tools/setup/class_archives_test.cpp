#include "tools/setup/class_archives.h"

#include <gtest/gtest.h>

namespace tarn::tools {
namespace {

TEST(ArchivePrefix, IsTheTextBeforeFurtherJars) {
    EXPECT_EQ(ArchivePrefixOf(L"%LOCALAPPDATA%\\Notes\\Notes"), "%LOCALAPPDATA%\\Notes\\Notes");
    EXPECT_EQ(ArchivePrefixOf(L"%LOCALAPPDATA%\\N \u00e4\\N;m\\a.jar"),
              "%LOCALAPPDATA%\\N \xC3\xA4\\N");
    EXPECT_EQ(ArchivePrefixOf(L"D:\\a\\b"), "D:\\a\\b");
    EXPECT_EQ(ArchivePrefixOf(L"\\\\server\\a\\b"), "\\\\server\\a\\b");
}

TEST(ArchivePrefix, IsEmptyForWhatCouldMatchOtherFiles) {
    for (const wchar_t* const value :
         {L"", L"notes", L"a\\notes", L"%LOCALAPPDATA%", L"%LOCALAPPDATA%\\*", L"C:\\a?\\b",
          L"C:\\a/b", L"C:\\a\nF b", L";C:\\a\\b"}) {
        EXPECT_EQ(ArchivePrefixOf(value), "");
    }
}

}  // namespace
}  // namespace tarn::tools
