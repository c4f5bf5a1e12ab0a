#include <filesystem>

#include "tools/check/rules_fixture.h"
#include "tools/common/whole_file.h"
#include "tools/image/picture_format.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::string_view_literals;

std::wstring Application(const std::wstring& lines) {
    return L"[Application]\n" + lines;
}

TEST(FileRulesTest, WarnsAboutInvalidOutputFileNames) {
    EXPECT_THAT(
        Check(CheckFiles, Application(L"Output File=%TEMP%\\out_%yyyy-MM-dd_HH-mm-ss%.txt")),
        IsEmpty());
    EXPECT_THAT(Check(CheckFiles, Application(L"Output File=C:\\logs\\out_%HH:mm%.txt")),
                ElementsAre("2 warning file-name"));
    EXPECT_THAT(Check(CheckFiles, Application(L"Error File=C:\\a?.txt")),
                ElementsAre("2 warning file-name"));
    EXPECT_THAT(Check(CheckFiles, Application(L"Error File=C:\\100%.txt")),
                ElementsAre("2 warning file-name"));
}

TEST(FileRulesTest, NotesARelativeOutputFile) {
    EXPECT_THAT(Check(CheckFiles, Application(L"Output File=out.txt")),
                ElementsAre("2 note working-directory"));
    EXPECT_THAT(Check(CheckFiles, Application(L"Output File=out.txt\nOverride WorkingDir=Yes")),
                IsEmpty());
}

TEST(FileRulesTest, WarnsAboutOneFileForBothStreamsUnlessAppending) {
    const std::wstring both = L"Output File=C:\\a.txt\nError File=c:\\A.txt\n";
    EXPECT_THAT(Check(CheckFiles, Application(both)), ElementsAre("3 warning shared-output"));
    EXPECT_THAT(Check(CheckFiles, Application(both + L"Output Append=yes\nError Append=yes")),
                IsEmpty());
}

TEST(FileRulesTest, WarnsAboutUnexpandedVariablesAndMissingSeparators) {
    const std::wstring java = L"[Java Runtime Environment]\n";
    EXPECT_THAT(Check(CheckFiles, java + L"JRE Path=%JAVA_HOME%"),
                ElementsAre("2 warning not-expanded"));
    EXPECT_THAT(Check(CheckFiles, java + L"JRE Path=jre"),
                ElementsAre("2 warning working-directory"));
    EXPECT_THAT(Check(CheckFiles, java + L"Library Path=C:\\native"),
                ElementsAre("2 warning library-path"));
    EXPECT_THAT(Check(CheckFiles, java + L"Library Path=C:\\native;"), IsEmpty());
    EXPECT_THAT(Check(CheckFiles, Application(L"Pair Product=%APP%\\a.exe")),
                ElementsAre("2 warning not-expanded"));
}

class FilesBeside : public testing::Test {
  protected:
    FilesBeside() { std::filesystem::create_directories(folder_ / "jre/bin/server"); }
    ~FilesBeside() override { std::filesystem::remove_all(folder_); }

    std::vector<std::string> Ids(const std::wstring& text) const {
        Findings findings;
        CheckFiles(CheckedSettings(folder_ / "sample.ini",
                                   {IniEncoding::Ascii,
                                    L"[Application]\nOverride WorkingDir=Yes\n" + text, false},
                                   true),
                   findings);
        std::vector<std::string> ids;
        for (const Finding& finding : findings.Sorted()) ids.push_back(finding.id);
        return ids;
    }

    std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() /
        ("tarn files " +
         std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
};

TEST_F(FilesBeside, IncludeAReadableSplashPicture) {
    const std::wstring display = L"[Display]\nSplash Screen=";
    EXPECT_THAT(Ids(display + L"a.png"), ElementsAre("splash"));
    WriteWholeFile(folder_ / "a.png", "no picture"sv);
    EXPECT_THAT(Ids(display + L"a.png"), ElementsAre("splash"));
    WriteWholeFile(folder_ / "a.png", "\x89PNG\r\n\x1A\n"sv);
    EXPECT_THAT(Ids(display + L"A.PNG"), IsEmpty());
    WriteWholeFile(folder_ / "b.bmp", "BM"sv);
    EXPECT_THAT(Ids(display + L"b.bmp"), IsEmpty());
    EXPECT_THAT(Ids(display + L"b.bmp\nPreffer Native Splash Screen=Yes"), ElementsAre("splash"));
}

TEST_F(FilesBeside, IncludeTheFolderOfARelativeOutputFile) {
    EXPECT_THAT(Ids(L"Output File=logs\\out.txt"), ElementsAre("output-folder"));
    EXPECT_THAT(Ids(L"Error File=jre/logs/out_%yyyy%.txt"), ElementsAre("output-folder"));
    EXPECT_THAT(Ids(L"Error File=jre\\%yyyy-MM-dd%\\out.txt"), ElementsAre("output-folder"));
    EXPECT_THAT(Ids(L"Error File=%yyyy%\\out.txt"), ElementsAre("output-folder"));
    EXPECT_THAT(Ids(L"Output File=out.txt"), IsEmpty());
    EXPECT_THAT(Ids(L"Output File=JRE\\bin\\out.txt"), IsEmpty());
    EXPECT_THAT(Ids(L"Output File=.\\out_%yyyy%.txt"), IsEmpty());
    EXPECT_THAT(Ids(L"Output File=jre\\%USERNAME%\\out.txt"), IsEmpty());
    EXPECT_THAT(Ids(L"Output File=C:\\nosuch\\%yyyy%\\out.txt"), IsEmpty());
    EXPECT_THAT(Ids(L"Output File=%TEMP%\\nosuch\\out.txt"), IsEmpty());
}

TEST_F(FilesBeside, IncludeTheConfiguredRuntime) {
    const std::wstring java = L"[Java Runtime Environment]\nJRE Path=jre\n";
    EXPECT_THAT(Ids(java), ElementsAre("no-runtime"));
    WriteWholeFile(folder_ / "jre/bin/server/jvm.dll", "x"sv);
    EXPECT_THAT(Ids(java), IsEmpty());
    EXPECT_THAT(Ids(java + L"JVM Type=server"), IsEmpty());
}

TEST(PictureFormatTest, IsRecognisedByTheFirstBytes) {
    const auto format = [](std::string_view bytes) {
        return PictureFormat(std::as_bytes(std::span(bytes)));
    };
    EXPECT_EQ(format("\x89PNG\r\n\x1A\n..."sv), "PNG");
    EXPECT_EQ(format("GIF89a"sv), "GIF");
    EXPECT_EQ(format("\xFF\xD8\xFF\xE0"sv), "JPEG");
    EXPECT_EQ(format("BM"sv), "BMP");
    EXPECT_EQ(format("II*\0"sv), "TIFF");
    EXPECT_EQ(format(""sv), "");
    EXPECT_EQ(format("<svg"sv), "");
}

}  // namespace
}  // namespace tarn::tools
