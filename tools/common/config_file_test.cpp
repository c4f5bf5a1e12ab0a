#include "tools/common/config_file.h"

#include <gmock/gmock.h>

#include "tools/common/failure.h"
#include "tools/common/folder_fixture.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ConfigFileTest : public FolderTest {
  protected:
    ConfigFileTest() {
        command_.add_option("input", input_);
        command_.add_option("--title", title_)->allow_extra_args(false);
        command_.add_option("--add", added_)->allow_extra_args(false);
        command_.add_flag("--single", isSingle_);
        command_.add_option("--config", config_)->configurable(false);
        command_.callback([this] { ApplyConfigFile(command_, config_); });
    }

    // Reads a file with this text.
    void Read(std::string_view text, std::vector<std::string> arguments = {}) {
        arguments.push_back("--config=" + Put("options.toml", text).string());
        command_.parse(arguments);
    }

    CLI::App command_{"", "command"};
    std::string input_, title_, config_;
    std::vector<std::string> added_;
    bool isSingle_ = false;
};

TEST_F(ConfigFileTest, SetsOptionsFlagsAndThePositionalArgument) {
    Read(
        "\xEF\xBB\xBF# comment\ninput = a.jar\ntitle = \"A # b, c\"\nadd = [\"x\", 'y z']\n"
        "single = true\n");
    EXPECT_EQ(input_, "a.jar");
    EXPECT_EQ(title_, "A # b, c");
    EXPECT_THAT(added_, ElementsAre("x", "y z"));
    EXPECT_TRUE(isSingle_);
}

TEST_F(ConfigFileTest, AddsTheValuesOfSeveralLines) {
    Read("add = x\ntitle = t\nadd = y\n");
    EXPECT_THAT(added_, ElementsAre("x", "y"));
}

TEST_F(ConfigFileTest, LeavesTheOptionsOfTheCommandLine) {
    Read("add = x\ntitle = file\nsingle = false\n", {"--add=y", "--title=line", "--single"});
    EXPECT_THAT(added_, ElementsAre("y"));
    EXPECT_EQ(title_, "line");
    EXPECT_TRUE(isSingle_);
}

TEST_F(ConfigFileTest, KeepsBackslashesInSingleQuotes) {
    Read("title = 'C:\\new \"\\t\"'\nadd = [\"x\", 'C:\\new']\n");
    EXPECT_EQ(title_, "C:\\new \"\\t\"");
    EXPECT_THAT(added_, ElementsAre("x", "C:\\new"));
}

TEST_F(ConfigFileTest, RejectsBackslashesInDoubleQuotes) {
    EXPECT_THROW(Read("title = \"C:\\new\"\n"), Failure);
}

TEST_F(ConfigFileTest, RejectsOtherEncodings) {
    EXPECT_THROW(Read("title = \xE4\n"), Failure);
    EXPECT_THROW(Read(std::string_view("\xFF\xFEt\0i\0", 6)), Failure);
}

TEST_F(ConfigFileTest, NamesTheFileWhenAValueIsNotAccepted) {
    try {
        Read("single = maybe\n");
        FAIL() << "was accepted";
    } catch (const Failure& failure) {
        EXPECT_THAT(failure.what(), HasSubstr("options.toml: "));
        EXPECT_THAT(failure.what(), HasSubstr("single"));
    }
}

TEST_F(ConfigFileTest, RejectsWhatIsNoOption) {
    for (const char* const text : {"other = x", "config = x", "help = true", "--title = x",
                                   "[command]\ntitle = x", "some text"}) {
        EXPECT_THROW(Read(text), Failure) << text;
    }
    EXPECT_THAT(title_, IsEmpty());
}

TEST_F(ConfigFileTest, RejectsTwoValuesOfASingleOption) {
    EXPECT_THROW(Read("title = a\nadd = x\ntitle = b\n"), Failure);
}

}  // namespace
}  // namespace tarn::tools
