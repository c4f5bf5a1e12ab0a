#include "tools/wrap/output_folder.h"

#include <gmock/gmock.h>

#include "tools/common/failure.h"
#include "tools/common/folder_fixture.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;

class OutputFolderTest : public FolderTest {
  protected:
    static void WriteText(const OutputFolder& output, const char* target, std::string_view text) {
        output.Write(target, std::as_bytes(std::span(text)));
    }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& file : FilesBelow(folder_)) names.push_back(file.generic_string());
        return names;
    }
};

TEST_F(OutputFolderTest, AppearsWhenItIsComplete) {
    OutputFolder output(folder_ / "deep/app/", false, "app.exe");
    WriteText(output, "app.exe", "x");
    WriteText(output, "lib/sub/a.jar", "y");
    EXPECT_FALSE(std::filesystem::exists(folder_ / "deep/app"));
    output.Finish();
    EXPECT_THAT(Names(), ElementsAre("deep/app/app.exe", "deep/app/lib/sub/a.jar"));
}

TEST_F(OutputFolderTest, LeavesNothingBehindWhenItIsGivenUp) {
    { WriteText(OutputFolder(folder_ / "app", false, "app.exe"), "app.exe", "x"); }
    EXPECT_TRUE(std::filesystem::is_empty(folder_));
}

TEST_F(OutputFolderTest, TakesThePlaceOfAnEmptyFolder) {
    std::filesystem::create_directories(folder_ / "app");
    OutputFolder output(folder_ / "app", false, "app.exe");
    WriteText(output, "app.exe", "x");
    output.Finish();
    EXPECT_THAT(Names(), ElementsAre("app/app.exe"));
}

TEST_F(OutputFolderTest, ReplacesOnlyWhatWasMadeBefore) {
    Put("app/app.exe", "old");
    Put("app/other", "old");
    EXPECT_THROW(OutputFolder(folder_ / "app", false, "app.exe"), Failure);
    EXPECT_THROW(OutputFolder(folder_ / "app", true, "another.exe"), Failure);
    EXPECT_THROW(OutputFolder(folder_ / "app/other", true, "app.exe"), Failure);
    OutputFolder output(folder_ / "app", true, "app.exe");
    WriteText(output, "app.exe", "new");
    EXPECT_EQ(TextOf(folder_ / "app/app.exe"), "old");
    output.Finish();
    EXPECT_THAT(Names(), ElementsAre("app/app.exe"));
    EXPECT_EQ(TextOf(folder_ / "app/app.exe"), "new");
}

TEST_F(OutputFolderTest, CopiesFoldersWithAllThatIsInThem) {
    Put("in/a.txt", "a");
    Put("in/sub/b.txt", "b");
    OutputFolder output(folder_ / "app", false, "app.exe");
    output.Copy(folder_ / "in", "data");
    output.Copy(folder_ / "in/a.txt", "c.txt");
    EXPECT_THROW(output.Copy(folder_ / "in/none", "x"), Failure);
    output.Finish();
    EXPECT_THAT(Names(), ElementsAre("app/c.txt", "app/data/a.txt", "app/data/sub/b.txt",
                                     "in/a.txt", "in/sub/b.txt"));
}

TEST_F(OutputFolderTest, SaysWhereNothingCanBeMade) {
    Put("file", "x");
    EXPECT_THROW(OutputFolder(folder_ / "file/app", false, "app.exe"), Failure);
    EXPECT_THROW(FilesBelow(folder_ / "none"), Failure);
}

}  // namespace
}  // namespace tarn::tools
