#include "tools/common/whole_file.h"

#include <gtest/gtest.h>

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

class WholeFile : public testing::Test {
  protected:
    void SetUp() override { std::filesystem::create_directories(folder_); }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    std::filesystem::path folder_ = std::filesystem::path(testing::TempDir()) /
                                    testing::UnitTest::GetInstance()->current_test_info()->name();
};

TEST_F(WholeFile, HoldsWhatWasWritten) {
    const std::filesystem::path file = folder_ / u8"é ж.bin";
    WriteWholeFile(file, "first");
    WriteWholeFile(file, std::string_view("a\0b\r\n", 5));
    const Bytes content = ReadWholeFile(file);
    EXPECT_EQ(content.size(), 5U);
    EXPECT_EQ(content[1], std::byte{0});
}

TEST_F(WholeFile, LeavesNothingBehindWhenItCannotBeReplaced) {
    const std::filesystem::path file = folder_ / "taken";
    std::filesystem::create_directories(file / "inside");
    EXPECT_THROW(WriteWholeFile(file, "text"), Failure);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "taken.new"));
    EXPECT_TRUE(std::filesystem::exists(file / "inside"));
}

TEST_F(WholeFile, NamesTheFileThatIsMissing) {
    try {
        ReadWholeFile(folder_ / "missing.jar");
        FAIL() << "was read";
    } catch (const Failure& failure) {
        EXPECT_NE(std::string(failure.what()).find("missing.jar"), std::string::npos);
    }
}

TEST_F(WholeFile, RefusesFoldersAndWhatIsLargerThanTheLimit) {
    EXPECT_THROW(ReadWholeFile(folder_), Failure);
    WriteWholeFile(folder_ / "large", "12345");
    EXPECT_THROW(ReadWholeFile(folder_ / "large", 4), Failure);
    EXPECT_EQ(ReadWholeFile(folder_ / "large", 5).size(), 5U);
}

}  // namespace
}  // namespace tarn::tools
