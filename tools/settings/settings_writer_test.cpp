#include "tools/settings/settings_writer.h"

#include <gtest/gtest.h>

#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/settings/embedded_settings_text.h"
#include "tools/settings/ini_encoding.h"

namespace tarn::tools {
namespace {

TEST(SettingsWriterTest, WritesSectionsCommentsAndSuggestions) {
    SettingsWriter settings("Heading");
    settings.Add(L"A", L"k", "1", "two\nlines");
    settings.Add(L"B", L"k", "2");
    settings.AddSuggestion(L"A", L"l", "3", "maybe");
    EXPECT_EQ(settings.Text(),
              "; Heading\r\n\r\n[A]\r\n; two\r\n; lines\r\nk=1\r\n; maybe\r\n;l=3\r\n\r\n"
              "[B]\r\nk=2\r\n");
}

TEST(SettingsWriterTest, SetsExistingValuesInAnyCase) {
    SettingsWriter settings("H");
    settings.Add(L"A", L"k", "1");
    settings.AddSuggestion(L"A", L"l", "2", "");
    settings.Set("a", "K", "3");
    settings.Set("a", "L", "4");
    settings.Set("B", "m", "5");
    EXPECT_EQ(settings.Text(), "; H\r\n\r\n[A]\r\nk=3\r\nl=4\r\n\r\n[B]\r\nm=5\r\n");
}

TEST(SettingsWriterTest, WritesValuesThatWindowsReadsBackUnchanged) {
    for (const char* const value : {"a b", "\"a b\"", "'x'", " a", "a ", "\"", "a=b;c", ""}) {
        SettingsWriter settings("H");
        settings.Add(L"A", L"k", value);
        std::vector<std::string> warnings;
        EXPECT_EQ(EmbeddedSettingsText(SettingsDocument(WideOf(settings.Text())), warnings),
                  "[A]\r\nk=" + std::string(value) + "\r\n");
    }
}

TEST(SettingsWriterTest, RejectsWhatWindowsWouldReadDifferently) {
    const struct {
        const char* section;
        const char* key;
        const char* value;
    } kSettings[] = {{"A", "k", "1\r\nl=2"}, {"A", "k", "1\n"}, {"A", ";k", "1"}, {"A", "k=l", "1"},
                     {"A", "[k", "1"},       {"A\n", "k", "1"}, {"A", "k", "\t1"}};
    for (const auto& setting : kSettings) {
        SettingsWriter settings("H");
        settings.Set(setting.section, setting.key, setting.value);
        EXPECT_THROW(settings.Text(), Failure) << setting.key << '=' << setting.value;
    }
}

TEST(SettingsWriterTest, WritesUtf16ForCharactersOutsideAscii) {
    SettingsWriter settings("H");
    settings.Add(L"A", L"k", "a");
    EXPECT_EQ(settings.Content().front(), std::byte{';'});
    EXPECT_EQ(Utf8Of(DecodeIni(settings.Content()).text), settings.Text());
    settings.Set("A", "k", "\xC3\xA4\xF0\x9F\x98\x80");
    EXPECT_EQ(settings.Content().front(), std::byte{0xFF});
    EXPECT_EQ(Utf8Of(DecodeIni(settings.Content()).text), settings.Text());
}

}  // namespace
}  // namespace tarn::tools
