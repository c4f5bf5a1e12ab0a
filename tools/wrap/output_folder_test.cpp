#include "tools/wrap/output_folder.h"

#include <gmock/gmock.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

#include "tools/common/failure.h"
#include "tools/common/folder_fixture.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;

class OutputFolderTest : public FolderTest {
  protected:
    static void WriteText(OutputFolder& output, const char* target, std::string_view text) {
        output.Write(target, AsBytes(text), "test");
    }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const TreeEntry& entry : ListTree(folder_)) {
            if (!entry.isFolder) names.push_back(entry.path.generic_string());
        }
        return names;
    }
};

TEST_F(OutputFolderTest, AppearsWhenItIsComplete) {
    OutputFolder output(folder_ / "deep/app/", false, "app.exe");
    WriteText(output, "app.exe", "x");
    WriteText(output, "lib/sub/a.jar", "y");
    EXPECT_FALSE(std::filesystem::exists(folder_ / "deep/app"));
    EXPECT_TRUE(output.Finish().empty());
    EXPECT_THAT(Names(), ElementsAre("deep/app/app.exe", "deep/app/lib/sub/a.jar"));
}

TEST_F(OutputFolderTest, LeavesNothingBehindWhenUnfinished) {
    {
        OutputFolder output(folder_ / "new/deep/app", false, "app.exe");
        WriteText(output, "app.exe", "x");
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder_));
    const std::string longName(300, 'x');
    EXPECT_THROW(OutputFolder(folder_ / "new" / longName / "app", false, "app.exe"), Failure);
    EXPECT_TRUE(std::filesystem::is_empty(folder_));
}

TEST_F(OutputFolderTest, LeavesWhatAppearedBesideAnUnfinishedOne) {
    {
        OutputFolder output(folder_ / "new/deep/app", false, "app.exe");
        Put("new/other", "kept");
    }
    EXPECT_THAT(Names(), ElementsAre("new/other"));
}

TEST_F(OutputFolderTest, ReplacesAnEmptyFolder) {
    std::filesystem::create_directories(folder_ / "app");
    OutputFolder output(folder_ / "app", false, "app.exe");
    WriteText(output, "app.exe", "x");
    EXPECT_TRUE(output.Finish().empty());
    EXPECT_THAT(Names(), ElementsAre("app/app.exe"));
}

TEST_F(OutputFolderTest, ReplacesOnlyItsOwnFolders) {
    Put("app/app.exe", "old");
    Put("app/other", "old");
    EXPECT_THROW(OutputFolder(folder_ / "app", false, "app.exe"), Failure);
    EXPECT_THROW(OutputFolder(folder_ / "app", true, "another.exe"), Failure);
    EXPECT_THROW(OutputFolder(folder_ / "app/other", true, "app.exe"), Failure);
    OutputFolder output(folder_ / "app", true, "app.exe");
    WriteText(output, "app.exe", "new");
    EXPECT_EQ(TextOf(folder_ / "app/app.exe"), "old");
    EXPECT_TRUE(output.Finish().empty());
    EXPECT_THAT(Names(), ElementsAre("app/app.exe"));
    EXPECT_EQ(TextOf(folder_ / "app/app.exe"), "new");
}

TEST_F(OutputFolderTest, CopiesFoldersWithTheirContents) {
    Put("in/a.txt", "a");
    Put("in/sub/b.txt", "b");
    OutputFolder output(folder_ / "app", false, "app.exe");
    output.Copy(folder_ / "in", "data");
    output.Copy(folder_ / "in/a.txt", "c.txt");
    EXPECT_THROW(output.Copy(folder_ / "in/none", "x"), Failure);
    EXPECT_TRUE(output.Finish().empty());
    EXPECT_THAT(Names(), ElementsAre("app/c.txt", "app/data/a.txt", "app/data/sub/b.txt",
                                     "in/a.txt", "in/sub/b.txt"));
}

TEST_F(OutputFolderTest, IsNotCopiedIntoItself) {
    Put("in/a.txt", "a");
    Put("in/old/app.exe", "old");
    OutputFolder below(folder_ / "in/deep/app", false, "app.exe");
    EXPECT_THROW(below.Copy(folder_ / "in", "data"), Failure);
    EXPECT_NO_THROW(below.Copy(folder_ / "in/old", "data"));
    OutputFolder replacing(folder_ / "in/old", true, "app.exe");
    EXPECT_THROW(replacing.Copy(folder_ / "in/old", "data"), Failure);
    EXPECT_FALSE(std::filesystem::exists(replacing.Unfinished() / "data"));
}

TEST_F(OutputFolderTest, IsBelowAFolderWhenItsNameIsThere) {
    Put("in/sub/a.txt", "a");
    EXPECT_TRUE(IsBelow(folder_ / "in/sub/a.txt", folder_ / "in"));
    EXPECT_TRUE(IsBelow(folder_ / "in/../in/sub/new", folder_ / "in/"));
    EXPECT_FALSE(IsBelow(folder_ / "in/sub/a.txt", folder_ / "in/su"));
    EXPECT_FALSE(IsBelow(folder_ / "in", folder_ / "in"));
    EXPECT_FALSE(IsBelow(folder_ / "in/../a.txt", folder_ / "in"));
}

TEST_F(OutputFolderTest, ReportsWhatItHasCopied) {
    Put("in/a.txt", "abc");
    Put("in/sub/large", std::string(3U << 20U, 'x'));
    OutputFolder output(folder_ / "app", false, "app.exe");
    std::uintmax_t whole = 0;
    int parts = 0;
    output.Copy(folder_ / "in", "data", [&](std::uintmax_t size) {
        whole += size;
        ++parts;
    });
    EXPECT_EQ(whole, TreeSize(folder_ / "in"));
    EXPECT_GT(parts, 2) << "a large file is copied in parts";
    EXPECT_EQ(TreeSize(folder_ / "in/a.txt"), 3U);
    EXPECT_TRUE(output.Finish().empty());
    EXPECT_EQ(TextOf(folder_ / "app/data/sub/large"), TextOf(folder_ / "in/sub/large"));
}

TEST_F(OutputFolderTest, NamesAFolderThatCannotBeCreated) {
    Put("file", "x");
    EXPECT_THROW(OutputFolder(folder_ / "file/app", false, "app.exe"), Failure);
    EXPECT_THROW(ListTree(folder_ / "none"), Failure);
}

TEST_F(OutputFolderTest, CopiesEmptyFolders) {
    std::filesystem::create_directories(folder_ / "in/empty/deeper");
    OutputFolder output(folder_ / "app", false, "app.exe");
    output.Copy(folder_ / "in", "data");
    EXPECT_TRUE(output.Finish().empty());
    EXPECT_TRUE(std::filesystem::is_directory(folder_ / "app/data/empty/deeper"));
}

TEST_F(OutputFolderTest, RejectsTwoFilesWithOneName) {
    Put("in/APP.EXE", "x");
    OutputFolder output(folder_ / "app", false, "app.exe");
    WriteText(output, "app.exe", "y");
    EXPECT_THROW(WriteText(output, "app.exe", "z"), Failure);
    EXPECT_THROW(output.Copy(folder_ / "in/APP.EXE", "APP.EXE"), Failure);
}

TEST_F(OutputFolderTest, PreservesFilesWithNamesLikeItsOwn) {
    for (const char* const name : {"app.unfinished/x", "app.old/x", "app.new", "app.tmp"}) {
        Put(name, "kept");
    }
    Put("app/app.exe", "old");
    OutputFolder output(folder_ / "app", true, "app.exe");
    WriteText(output, "app.exe", "new");
    WriteText(output, "app.exe.new", "other");
    EXPECT_TRUE(output.Finish().empty());
    EXPECT_THAT(Names(), ElementsAre("app/app.exe", "app/app.exe.new", "app.new", "app.old/x",
                                     "app.tmp", "app.unfinished/x"));
}

TEST_F(OutputFolderTest, PreservesAFolderThatAppearedInTheMeantime) {
    OutputFolder output(folder_ / "app", false, "app.exe");
    WriteText(output, "app.exe", "new");
    Put("app/precious", "kept");
    EXPECT_THROW((void)output.Finish(), Failure);
    EXPECT_EQ(TextOf(folder_ / "app/precious"), "kept");
}

#ifndef _WIN32
TEST_F(OutputFolderTest, IsNotALink) {
    std::filesystem::create_directories(folder_ / "target");
    std::filesystem::create_symlink("target", folder_ / "app");
    std::filesystem::create_symlink("nowhere", folder_ / "dangling");
    EXPECT_THROW(OutputFolder(folder_ / "app", true, "app.exe"), Failure);
    EXPECT_THROW(OutputFolder(folder_ / "app/", true, "app.exe"), Failure);
    EXPECT_THROW(OutputFolder(folder_ / "dangling", true, "app.exe"), Failure);
}

TEST_F(OutputFolderTest, RejectsNamedPipesAndCycles) {
    Put("in/a", "x");
    std::filesystem::create_symlink("..", folder_ / "in/cycle");
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    OutputFolder output(folder_ / "app", false, "app.exe");
    EXPECT_THROW(output.Copy(folder_ / "in", "data"), Failure);
    EXPECT_THROW(output.Copy(folder_ / "pipe", "pipe"), Failure);
}
#endif

}  // namespace
}  // namespace tarn::tools
