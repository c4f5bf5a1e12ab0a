#include "tools/setup/packaging_tool.h"

#include <functional>

#include "tools/common/failure.h"
#include "tools/common/folder_fixture.h"

namespace tarn::tools {
namespace {

class PackagingToolTest : public FolderTest {};

std::string MessageOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const Failure& failure) {
        return failure.what();
    }
    return {};
}

TEST_F(PackagingToolTest, NamesThePackageOfAMissingTool) {
    const PackagingTool missing = {"no-tool-has-this-name", "its-package", "https://its.site", {}};
    const std::string message = MessageOf([&] { RunTool(missing, {}, folder_, "the setup"); });
    EXPECT_NE(message.find("no-tool-has-this-name"), std::string::npos) << message;
#ifdef _WIN32
    EXPECT_NE(message.find("https://its.site"), std::string::npos) << message;
#else
    EXPECT_NE(message.find("apt-get install its-package"), std::string::npos) << message;
#endif
}

TEST_F(PackagingToolTest, FailsWithTheOutputOfASigningCommandThatFails) {
    const std::string message =
        MessageOf([&] { SignFile("echo no certificate && exit 4", folder_ / "a.exe"); });
    EXPECT_NE(message.find("no certificate"), std::string::npos) << message;
}

TEST_F(PackagingToolTest, ShowsTheLastLinesOfAnOutput) {
    std::string output;
    for (int line = 1; line <= 20; ++line) output += "line " + std::to_string(line) + "\r\n\n";
    const std::string shown = LastLines(output + "end");
    EXPECT_EQ(shown.find("line 9\n"), std::string::npos);
    EXPECT_TRUE(shown.starts_with("\n    line 10\n    line 11\n")) << shown;
    EXPECT_TRUE(shown.ends_with("\n    end"));
}

}  // namespace
}  // namespace tarn::tools
