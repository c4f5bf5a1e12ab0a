#include "tools/stamp/launcher_file.h"

#include <gtest/gtest.h>

#include "tools/common/failure.h"
#include "tools/image/small_executable.h"
#include "tools/stamp/stamp.h"

namespace tarn::tools {
namespace {

Bytes WithStrings(std::vector<std::pair<std::uint16_t, std::string>> strings) {
    StampChanges changes;
    changes.strings = std::move(strings);
    std::vector<std::string> warnings;
    return Stamp(SmallExecutable({".text", ".rsrc", ".reloc"}).Content(), changes, warnings);
}

TEST(LauncherFileTest, IsRecognisedByItsMessages) {
    EXPECT_NO_THROW(CheckIsLauncher(WithStrings({{207, "a"}, {210, "b"}, {230, "c"}})));
    EXPECT_THROW(CheckIsLauncher(WithStrings({{207, "a"}, {210, "b"}})), Failure);
    EXPECT_THROW(CheckIsLauncher(WithStrings({})), Failure);
    EXPECT_TRUE(IsLauncher(WithStrings({{207, "a"}, {210, "b"}, {230, "c"}})));
    EXPECT_FALSE(IsLauncher(WithStrings({})));
}

TEST(LauncherFileTest, IsAnExecutable) {
    EXPECT_THROW(CheckIsLauncher(AsBytes("text")), Failure);
    EXPECT_FALSE(IsLauncher(AsBytes("text")));
}

}  // namespace
}  // namespace tarn::tools
