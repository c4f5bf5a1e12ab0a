#include "ui/link_markup.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

void ExpectPieces(std::wstring_view text, std::wstring_view prefix, std::wstring_view link,
                  std::wstring_view suffix) {
    const LinkLabel label = ScanLinkMarkup(text);
    EXPECT_EQ(label.prefix, prefix);
    EXPECT_EQ(label.link, link);
    EXPECT_EQ(label.suffix, suffix);
}

TEST(LinkMarkupTest, ATextWithoutMarkUpIsALinkAsAWhole) {
    ExpectPieces(L"http://example.com/", L"", L"http://example.com/", L"");
    ExpectPieces(L"", L"", L"", L"");
}

TEST(LinkMarkupTest, TheMarkedWordIsTheLink) {
    ExpectPieces(L"Get <A>Java</A>", L"Get ", L"Java", L"");
    ExpectPieces(L"<A>Java</A>", L"", L"Java", L"");
    ExpectPieces(L"Get <A>Java</A> now", L"Get ", L"Java", L" now");
}

TEST(LinkMarkupTest, LetterCaseOfTheMarksDoesNotCount) {
    ExpectPieces(L"Get <a>Java</a>", L"Get ", L"Java", L"");
    ExpectPieces(L"Get <a>Java</A>.", L"Get ", L"Java", L".");
}

TEST(LinkMarkupTest, WithoutTheClosingMarkTheLinkRunsToTheEnd) {
    ExpectPieces(L"Get <A>Java", L"Get ", L"Java", L"");
    ExpectPieces(L"Get <A>", L"Get ", L"", L"");
    ExpectPieces(L"Get <A>Java</A", L"Get ", L"Java</A", L"");
}

TEST(LinkMarkupTest, OnlyTheFirstPairCounts) {
    ExpectPieces(L"<A>a</A>b<A>c</A>", L"", L"a", L"b<A>c</A>");
    ExpectPieces(L"<A>a<A>b</A>", L"", L"a<A>b", L"");
}

TEST(LinkMarkupTest, AClosingMarkBeforeTheOpeningOneIsPlainText) {
    ExpectPieces(L"x</A>y<A>z</A>", L"x</A>y", L"z", L"");
    ExpectPieces(L"x</A>", L"", L"x</A>", L"");
}

TEST(LinkMarkupTest, NearlyMarksArePlainText) {
    ExpectPieces(L"<A <B> < A> <A href>", L"", L"<A <B> < A> <A href>", L"");
    ExpectPieces(L"<", L"", L"<", L"");
    ExpectPieces(L"<A", L"", L"<A", L"");
}

}  // namespace
}  // namespace tarn
