#include "tools/common/whole_file.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

#include "tools/common/failure.h"
#include "tools/common/folder_fixture.h"

namespace tarn::tools {
namespace {

class WholeFile : public FolderTest {
  protected:
    std::size_t CountFiles() const {
        const std::filesystem::directory_iterator files(folder_);
        return static_cast<std::size_t>(std::distance(begin(files), end(files)));
    }
};

TEST_F(WholeFile, HoldsWhatWasWritten) {
    const std::filesystem::path file = folder_ / u8"é ж.bin";
    WriteWholeFile(file, "first");
    WriteWholeFile(file, std::string_view("a\0b\r\n", 5));
    const Bytes content = ReadWholeFile(file);
    EXPECT_EQ(content.size(), 5U);
    EXPECT_EQ(content[1], std::byte{0});
    EXPECT_EQ(CountFiles(), 1U);
}

TEST_F(WholeFile, LeavesNothingBehindWhenItCannotBeReplaced) {
    const std::filesystem::path file = folder_ / "taken";
    std::filesystem::create_directories(file / "inside");
    EXPECT_THROW(WriteWholeFile(file, "text"), Failure);
    EXPECT_EQ(CountFiles(), 1U);
    EXPECT_TRUE(std::filesystem::exists(file / "inside"));
}

TEST_F(WholeFile, NamesTheMissingFile) {
    try {
        ReadWholeFile(folder_ / "missing.jar");
        FAIL() << "was read";
    } catch (const Failure& failure) {
        EXPECT_NE(std::string(failure.what()).find("missing.jar"), std::string::npos);
    }
}

TEST_F(WholeFile, RefusesFoldersAndFilesLargerThanTheLimit) {
    EXPECT_THROW(ReadWholeFile(folder_), Failure);
    WriteWholeFile(folder_ / "large", "12345");
    EXPECT_THROW(ReadWholeFile(folder_ / "large", 4), Failure);
    EXPECT_EQ(ReadWholeFile(folder_ / "large", 5).size(), 5U);
}

TEST_F(WholeFile, IsNotCreatedOverAnotherOne) {
    WriteNewFile(folder_ / "a", AsBytes("first"));
    EXPECT_THROW(WriteNewFile(folder_ / "a", AsBytes("second")), Failure);
    EXPECT_EQ(TextOf(folder_ / "a"), "first");
}

#ifndef _WIN32
TEST_F(WholeFile, IsNeverWrittenThroughALink) {
    WriteWholeFile(folder_ / "target", "kept");
    std::filesystem::create_symlink("target", folder_ / "link");
    std::filesystem::create_symlink("nowhere", folder_ / "dangling");
    EXPECT_THROW(WriteNewFile(folder_ / "link", AsBytes("x")), Failure);
    EXPECT_THROW(WriteNewFile(folder_ / "dangling", AsBytes("x")), Failure);
    WriteWholeFile(folder_ / "link", "new");
    EXPECT_EQ(TextOf(folder_ / "target"), "kept");
    EXPECT_EQ(TextOf(folder_ / "link"), "new");
    EXPECT_FALSE(std::filesystem::is_symlink(folder_ / "link"));
    EXPECT_FALSE(std::filesystem::exists(folder_ / "nowhere"));
}

TEST_F(WholeFile, RefusesANamedPipeWithoutWaiting) {
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    EXPECT_THROW(ReadWholeFile(folder_ / "pipe"), Failure);
}
#endif

TEST(TemporaryNameForTest, IsAnotherOneEachTime) {
    EXPECT_NE(TemporaryNameFor("a"), TemporaryNameFor("a"));
    EXPECT_EQ(TemporaryNameFor(std::filesystem::path("x") / "a").parent_path(), "x");
}

}  // namespace
}  // namespace tarn::tools
