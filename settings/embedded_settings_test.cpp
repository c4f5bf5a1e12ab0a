#include "settings/embedded_settings.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

TEST(EmbeddedSettingsTest, AnEmptyTextHoldsNothing) {
    EXPECT_EQ(EmbeddedSettings(L"").Find(L"Application", L"Cmd"), L"");
    EXPECT_EQ(EmbeddedSettings().Find(L"", L""), L"");
}

TEST(EmbeddedSettingsTest, FindsValuesBySectionAndKey) {
    const EmbeddedSettings settings(L"[A]\r\nk=1\r\n[B]\r\nk=2\r\nl=3=4");
    EXPECT_EQ(settings.Find(L"A", L"k"), L"1");
    EXPECT_EQ(settings.Find(L"B", L"k"), L"2");
    EXPECT_EQ(settings.Find(L"B", L"l"), L"3=4");
    EXPECT_EQ(settings.Find(L"A", L"l"), L"");
    EXPECT_EQ(settings.Find(L"C", L"k"), L"");
}

TEST(EmbeddedSettingsTest, LookUpIsExact) {
    const EmbeddedSettings settings(L"[A]\r\nKey=1");
    EXPECT_EQ(settings.Find(L"A", L"key"), L"");
    EXPECT_EQ(settings.Find(L"a", L"Key"), L"");
}

TEST(EmbeddedSettingsTest, AByteOrderMarkIsRemovedFromTheFirstLineOnly) {
    EXPECT_EQ(EmbeddedSettings(L"\uFEFF[A]\r\nk=1").Find(L"A", L"k"), L"1");
    EXPECT_EQ(EmbeddedSettings(L"[A]\r\n\uFEFFk=1").Find(L"A", L"k"), L"");
}

TEST(EmbeddedSettingsTest, LeadingSpacesAndControlCharactersAreSkipped) {
    EXPECT_EQ(EmbeddedSettings(L" \t\x01[A]\r\n \t k=1").Find(L"A", L"k"), L"1");
}

TEST(EmbeddedSettingsTest, NothingIsTrimmedAroundTheEqualsSign) {
    const EmbeddedSettings settings(L"[A]\r\nk = v ");
    EXPECT_EQ(settings.Find(L"A", L"k "), L" v ");
    EXPECT_EQ(settings.Find(L"A", L"k"), L"");
}

TEST(EmbeddedSettingsTest, SpacesAfterASectionNameAreRemoved) {
    EXPECT_EQ(EmbeddedSettings(L"[A] \t\r\nk=1").Find(L"A", L"k"), L"1");
    EXPECT_EQ(EmbeddedSettings(L"[ A ]\r\nk=1").Find(L" A ", L"k"), L"1");
}

TEST(EmbeddedSettingsTest, AnUnmatchedBracketIsPartOfAKey) {
    const EmbeddedSettings settings(L"[A]\r\n[B\r\n[=x\r\nk=1");
    EXPECT_EQ(settings.Find(L"A", L"k"), L"1");
    EXPECT_EQ(settings.Find(L"A", L"["), L"x");
}

TEST(EmbeddedSettingsTest, AnEmptySectionNameIsValid) {
    EXPECT_EQ(EmbeddedSettings(L"[A]\r\n[]\r\nk=1").Find(L"", L"k"), L"1");
}

TEST(EmbeddedSettingsTest, OnlyCarriageReturnAndLineFeedTogetherEndALine) {
    EXPECT_EQ(EmbeddedSettings(L"[A]\r\nk=1\nl=2").Find(L"A", L"k"), L"1\nl=2");
}

TEST(EmbeddedSettingsTest, EmptyLinesAreSkipped) {
    EXPECT_EQ(EmbeddedSettings(L"\r\n\r\n[A]\r\n\r\n  \r\nk=1\r\n\r\n").Find(L"A", L"k"), L"1");
}

TEST(EmbeddedSettingsTest, ARepeatedSectionIsContinued) {
    const EmbeddedSettings settings(L"[A]\r\nk=1\r\n[B]\r\n[A]\r\nl=2\r\nk=3");
    EXPECT_EQ(settings.Find(L"A", L"k"), L"3");
    EXPECT_EQ(settings.Find(L"A", L"l"), L"2");
}

}  // namespace
}  // namespace tarn
