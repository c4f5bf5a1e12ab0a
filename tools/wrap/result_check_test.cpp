#include "tools/wrap/result_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

// The message, or an empty text when nothing is wrong. The folder does not exist.
std::string MessageFor(const std::string& text, const std::vector<std::string>& allowed = {}) {
    try {
        CheckResult(EmbeddedSettingsForCheck(text, "unfinished/app.exe"), "app.exe", "out",
                    allowed);
    } catch (const Failure& failure) {
        return failure.what();
    }
    return {};
}

const std::string kGood =
    "[Application]\r\nOverride WorkingDir=Yes\r\nEmbedded Jar=Yes\r\n"
    "[Java Runtime Environment]\r\nMain Class=a.B\r\nMinimum Version=17\r\nMaximum Version=any\r\n";

TEST(ResultCheckTest, AcceptsSettingsWithoutFindings) {
    EXPECT_EQ(MessageFor(kGood), "");
}

TEST(ResultCheckTest, NamesEveryFindingAndItsRemedy) {
    EXPECT_THAT(MessageFor(kGood + "[Foo]\r\nBar=1\r\n[Application]\r\n"),
                AllOf(HasSubstr("app.exe: nothing was created"), HasSubstr("2 findings"),
                      HasSubstr("\"unknown-section\": section \"Foo\" is never read"),
                      HasSubstr("\"repeated-section\""), HasSubstr("--allow")));
}

TEST(ResultCheckTest, ShowsTheFinalFolder) {
    EXPECT_THAT(MessageFor(kGood + "[Class Path]\r\nClass Path=none.jar\r\n"),
                AllOf(HasSubstr("none.jar"), Not(HasSubstr("unfinished"))));
}

TEST(ResultCheckTest, IgnoresAllowedFindingsOnly) {
    const std::string text = kGood + "[Foo]\r\nBar=1\r\n";
    EXPECT_EQ(MessageFor(text, {"unknown-section"}), "");
    EXPECT_THAT(MessageFor(text, {"unknown-key"}), HasSubstr("1 finding:"));
}

}  // namespace
}  // namespace tarn::tools
