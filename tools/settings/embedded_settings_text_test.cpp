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

std::string Embedded(std::string_view settings) {
    std::vector<std::string> warnings;
    const std::string text = EmbeddedSettingsText(SettingsDocument(WideOf(settings)), warnings);
    EXPECT_THAT(warnings, IsEmpty());
    return text;
}

TEST(EmbeddedSettingsTextTest, IsNormalised) {
    EXPECT_EQ(Embedded("; comment\n[Application]\n  Cmd =  a b  \r\n\r\nEmbedded Jar=\"Yes\"\n"),
              "[Application]\r\nCmd=a b\r\nEmbedded Jar=Yes\r\n");
    EXPECT_EQ(Embedded("Cmd=above all sections\nnonsense\n[Application]\nnonsense\n=x\n"),
              "[Application]\r\n");
}

TEST(EmbeddedSettingsTextTest, KeepsTheFirstOfTwoValues) {
    EXPECT_EQ(Embedded("[Application]\nCmd=1\ncmd=2\n[X]\na=b\n"),
              "[Application]\r\nCmd=1\r\n[X]\r\na=b\r\n");
}

TEST(EmbeddedSettingsTextTest, KeepsTheFirstOfTwoSectionsAsWindowsDoes) {
    std::vector<std::string> warnings;
    const SettingsDocument settings(L"[Application]\nCmd=1\n[application]\nFailure Check=Yes\n");
    EXPECT_EQ(EmbeddedSettingsText(settings, warnings), "[Application]\r\nCmd=1\r\n");
    EXPECT_THAT(warnings, ElementsAre(HasSubstr("[Application] appears twice")));
}

TEST(EmbeddedSettingsTextTest, SpellsNamesAsTheLauncherDoes) {
    const std::string text = Embedded("[java runtime environment]\nMAIN CLASS=a.B\nOwn Key=C\n");
    const EmbeddedSettings settings(WideOf(text));
    EXPECT_EQ(settings.Find(keys::kJavaRuntimeEnvironment, keys::kMainClass), L"a.B");
    EXPECT_EQ(settings.Find(keys::kJavaRuntimeEnvironment, L"Own Key"), L"C");
}

TEST(EmbeddedSettingsTextTest, RemovesOnePairOfQuotes) {
    EXPECT_EQ(Embedded("[A]\na=\"\"x\"\"\nb='y'\nc=\"z'\nd=\"\ne=a\"b\""),
              "[A]\r\na=\"x\"\r\nb=y\r\nc=\"z'\r\nd=\"\r\ne=a\"b\"\r\n");
}

TEST(EmbeddedSettingsTextTest, OmitsSectionsWithoutEffectWithAWarning) {
    std::vector<std::string> warnings;
    const SettingsDocument settings(
        L"[Display]\nSplash Screen=a.png\n[product information]\nx=y\n[Application+]\nCmd=a\n"
        L"[Class Path]\nClass Path=a.jar\n");
    EXPECT_EQ(EmbeddedSettingsText(settings, warnings), "[Class Path]\r\nClass Path=a.jar\r\n");
    EXPECT_THAT(warnings, ElementsAre(HasSubstr("[Display]"), HasSubstr("[Product Information]"),
                                      HasSubstr("[Application+]")));
}

}  // namespace
}  // namespace tarn::tools
