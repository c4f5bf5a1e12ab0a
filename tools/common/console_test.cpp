#include "tools/common/console.h"

#include <gtest/gtest.h>

namespace tarn::tools {
namespace {

class ConsoleOutput : public testing::Test {
  protected:
    ~ConsoleOutput() override {
        std::fclose(output_);
        std::fclose(errors_);
    }

    static std::string TextOf(std::FILE* file) {
        std::rewind(file);
        std::string text(1000, '\0');
        text.resize(std::fread(text.data(), 1, text.size(), file));
        return text;
    }

    std::FILE* output_ = std::tmpfile();
    std::FILE* errors_ = std::tmpfile();
};

TEST_F(ConsoleOutput, HasNeitherColorsNorProgressInAFile) {
    const Console console(output_, errors_, false, false);
    console.PrintLine(console.Styled(Style::Bold, "title"));
    console.ShowProgress("half");
    console.PrintNote("slow");
    console.PrintError("broken");
    EXPECT_EQ(TextOf(output_), "title\n");
    EXPECT_EQ(TextOf(errors_), "tarn: slow\ntarn: error: broken\n");
}

TEST_F(ConsoleOutput, ErasesTheProgressLineBeforeAnError) {
    const Console console(output_, errors_, true, true);
    console.ShowProgress("half");
    console.PrintWarning("odd");
    const std::string errors = TextOf(errors_);
    EXPECT_NE(errors.find("half\r\x1b[K"), std::string::npos);
    EXPECT_NE(errors.find("tarn: warning: "), std::string::npos);
}

}  // namespace
}  // namespace tarn::tools
