#include "tools/settings/settings_document.h"

#include <gtest/gtest.h>

namespace tarn::tools {
namespace {

TEST(SettingsDocumentTest, KeepsTheLinesOfSectionsAndKeys) {
    const SettingsDocument document(L"; comment\r\n\r\n[A]\r\nb = c \r\n\n [D] \rx=1=2");
    ASSERT_EQ(document.sections().size(), 2U);
    EXPECT_EQ(document.sections()[0].name, L"A");
    EXPECT_EQ(document.sections()[0].line, 3U);
    ASSERT_EQ(document.sections()[0].entries.size(), 1U);
    EXPECT_EQ(document.sections()[0].entries[0].line, 4U);
    EXPECT_EQ(document.sections()[0].entries[0].key, L"b");
    EXPECT_EQ(document.sections()[0].entries[0].value, L"c");
    EXPECT_EQ(document.sections()[1].line, 6U);
    EXPECT_EQ(document.sections()[1].entries[0].line, 7U);
    EXPECT_EQ(document.sections()[1].entries[0].value, L"1=2");
}

TEST(SettingsDocumentTest, FindsTheFirstKeyOfTheFirstSectionInAnyCase) {
    const SettingsDocument document(L"[a]\nk=1\nK=2\n[A]\nk=3\nonly=4");
    EXPECT_EQ(document.Find(L"A", L"K")->value, L"1");
    EXPECT_EQ(document.Find(L"A", L"only"), nullptr);
    EXPECT_EQ(document.Find(L"B", L"k"), nullptr);
}

TEST(SettingsDocumentTest, RemovesOnePairOfQuotesAroundAValue) {
    const SettingsDocument document(
        L"[a]\n1=\"x y\"\n2='z '\n3=\"\"q\"\"\n4=\"open\n5=\"\n6=\"a\" \"b\"");
    const auto value = [&](const wchar_t* key) { return document.Find(L"a", key)->value; };
    EXPECT_EQ(value(L"1"), L"x y");
    EXPECT_EQ(value(L"2"), L"z ");
    EXPECT_EQ(value(L"3"), L"\"q\"");
    EXPECT_EQ(value(L"4"), L"\"open");
    EXPECT_EQ(value(L"5"), L"\"");
    EXPECT_EQ(value(L"6"), L"a\" \"b");
    EXPECT_EQ(document.Find(L"a", L"1")->written, L"\"x y\"");
}

TEST(SettingsDocumentTest, SeparatesLinesThatAreNotSettings) {
    const SettingsDocument document(L"above=1\n[open\nword\n[A]trailing\nk=1");
    EXPECT_EQ(document.entriesAboveSections().size(), 1U);
    ASSERT_EQ(document.strayLines().size(), 2U);
    EXPECT_EQ(document.strayLines()[0].line, 2U);
    EXPECT_EQ(document.strayLines()[1].text, L"word");
    EXPECT_EQ(document.Find(L"A", L"k")->value, L"1");
}

TEST(SettingsDocumentTest, AcceptsAnyText) {
    for (const wchar_t* text : {L"", L"\n", L"\r", L"=", L"[]", L"]", L"[", L"[]\n=", L"\r\n\r"}) {
        EXPECT_LE(SettingsDocument(text).sections().size(), 1U) << text;
    }
    EXPECT_NE(SettingsDocument(L"[]\n=v").Find(L"", L""), nullptr);
}

}  // namespace
}  // namespace tarn::tools
