#include "tools/settings/embedded_settings_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "settings/embedded_settings.h"
#include "settings/keys.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::string Decoded(std::string_view file) {
    return DecodeSettingsFile(std::as_bytes(std::span(file)));
}

std::string Embedded(std::string_view settings) {
    std::vector<std::string> warnings;
    const std::string text = EmbeddedSettingsText(settings, warnings);
    EXPECT_THAT(warnings, IsEmpty());
    return text;
}

TEST(SettingsFile, IsReadInEveryEncodingThatWindowsReads) {
    EXPECT_EQ(Decoded("a\xC3\xA4"), "a\xC3\xA4");
    EXPECT_EQ(Decoded("\xEF\xBB\xBF"
                      "a\xC3\xA4"),
              "a\xC3\xA4");
    EXPECT_EQ(Decoded(std::string_view("\xFF\xFE"
                                       "a\0\xE4\0",
                                       6)),
              "a\xC3\xA4");
    EXPECT_EQ(Decoded(std::string_view("\xFE\xFF"
                                       "\0a\0\xE4",
                                       6)),
              "a\xC3\xA4");
    EXPECT_EQ(Decoded("\xE4 \x80\x81"), "\xC3\xA4 \xE2\x82\xAC\xC2\x81");
    EXPECT_EQ(Decoded(""), "");
}

TEST(SettingsText, WritesOutWhatTheLinesOfAFileMean) {
    EXPECT_EQ(Embedded("; comment\n[Application]\n  Cmd =  a b  \r\n\r\nEmbedded Jar=\"Yes\"\n"),
              "[Application]\r\nCmd=a b\r\nEmbedded Jar=Yes\r\n");
    EXPECT_EQ(Embedded("Cmd=above all sections\nnonsense\n[Application]\nnonsense\n=x\n"),
              "[Application]\r\n");
}

TEST(SettingsText, KeepsTheFirstOfTwoValuesAndJoinsSections) {
    EXPECT_EQ(Embedded("[Application]\nCmd=1\ncmd=2\n[X]\na=b\n[application]\nCmd=3\nFailure "
                       "Check=Yes"),
              "[Application]\r\nCmd=1\r\nFailure Check=Yes\r\n[X]\r\na=b\r\n");
}

TEST(SettingsText, SpellsNamesAsTheLauncherLooksForThem) {
    const std::string text = Embedded("[java runtime environment]\nMAIN CLASS=a.B\nOwn Key=C\n");
    const EmbeddedSettings settings(WideOf(text));
    EXPECT_EQ(settings.Find(keys::kJavaRuntimeEnvironment, keys::kMainClass), L"a.B");
    EXPECT_EQ(settings.Find(keys::kJavaRuntimeEnvironment, L"Own Key"), L"C");
}

TEST(SettingsText, RemovesOnePairOfQuotes) {
    EXPECT_EQ(Embedded("[A]\na=\"\"x\"\"\nb='y'\nc=\"z'\nd=\"\ne=a\"b\""),
              "[A]\r\na=\"x\"\r\nb=y\r\nc=\"z'\r\nd=\"\r\ne=a\"b\"\r\n");
}

TEST(SettingsText, LeavesOutWhatHasNoEffectAndSaysSo) {
    std::vector<std::string> warnings;
    EXPECT_EQ(EmbeddedSettingsText("[Display]\nSplash Screen=a.png\n[product information]\nx=y\n"
                                   "[Application+]\nCmd=a\n[Class Path]\nClass Path=a.jar\n",
                                   warnings),
              "[Class Path]\r\nClass Path=a.jar\r\n");
    EXPECT_THAT(warnings, ElementsAre(HasSubstr("[Display]"), HasSubstr("[Product Information]"),
                                      HasSubstr("[Application+]")));
}

}  // namespace
}  // namespace tarn::tools
