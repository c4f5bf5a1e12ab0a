#include "tools/setup/work_folder.h"

#include "tools/common/failure.h"
#include "tools/common/folder_fixture.h"

namespace tarn::tools {
namespace {

namespace fs = std::filesystem;

class WorkFolderTest : public FolderTest {};

TEST_F(WorkFolderTest, IsRemovedWithItsContent) {
    fs::path path;
    {
        const WorkFolder work({});
        path = work.Path();
        WriteWholeFile(path / "a", "1");
    }
    EXPECT_FALSE(fs::exists(path));
}

TEST_F(WorkFolderTest, OfAScriptStaysOnlyAfterSuccess) {
    { const WorkFolder work(folder_ / "script"); }
    EXPECT_FALSE(fs::exists(folder_ / "script"));
    {
        WorkFolder work(folder_ / "script");
        work.Keep();
    }
    EXPECT_TRUE(fs::exists(folder_ / "script"));
}

TEST_F(WorkFolderTest, OfAScriptMustBeNewOrEmpty) {
    Put("script/a", "1");
    EXPECT_THROW(WorkFolder(folder_ / "script"), Failure);
    EXPECT_TRUE(fs::exists(folder_ / "script" / "a"));
}

TEST_F(WorkFolderTest, ResultReplacesAFileOnlyWhenAsked) {
    Put("made", "new");
    Put("result", "old");
    EXPECT_THROW(PlaceResult(folder_ / "made", folder_ / "result", false), Failure);
    EXPECT_EQ(TextOf(folder_ / "result"), "old");
    PlaceResult(folder_ / "made", folder_ / "result", true);
    EXPECT_EQ(TextOf(folder_ / "result"), "new");
}

TEST_F(WorkFolderTest, ResultNeedsAFolderAndReplacesNone) {
    fs::create_directories(folder_ / "taken");
    EXPECT_THROW(CheckResultPath(folder_ / "taken", true), Failure);
    EXPECT_THROW(CheckResultPath(folder_ / "none" / "a.exe", true), Failure);
    EXPECT_NO_THROW(CheckResultPath(folder_ / "a.exe", false));
}

}  // namespace
}  // namespace tarn::tools
