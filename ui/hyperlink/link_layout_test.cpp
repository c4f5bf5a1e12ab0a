#include "ui/hyperlink/link_layout.h"

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

TEST(LinkMarkupTest, ATextWithoutMarkUpIsALinkEntirely) {
    ExpectPieces(L"http://example.com/", L"", L"http://example.com/", L"");
    ExpectPieces(L"", L"", L"", L"");
}

TEST(LinkMarkupTest, TheMarkedWordIsTheLink) {
    ExpectPieces(L"Get <A>Java</A>", L"Get ", L"Java", L"");
    ExpectPieces(L"<A>Java</A>", L"", L"Java", L"");
    ExpectPieces(L"Get <A>Java</A> now", L"Get ", L"Java", L" now");
}

TEST(LinkMarkupTest, TheMarksAreCaseInsensitive) {
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

TEST(LinkMarkupTest, IncompleteMarksArePlainText) {
    ExpectPieces(L"<A <B> < A> <A href>", L"", L"<A <B> < A> <A href>", L"");
    ExpectPieces(L"<", L"", L"<", L"");
    ExpectPieces(L"<A", L"", L"<A", L"");
}

TEST(LinkLayoutTest, TheStaticsStyleSetsTheAlignment) {
    EXPECT_EQ(LinkAlignmentOf(0x50000000), LinkAlignment::Left);
    EXPECT_EQ(LinkAlignmentOf(0x50000001), LinkAlignment::Center);
    EXPECT_EQ(LinkAlignmentOf(0x50000002), LinkAlignment::Right);
    EXPECT_EQ(LinkAlignmentOf(0x5000000C), LinkAlignment::Left);
    // SS_NOPREFIX and SS_NOTIFY are bits beside the kind.
    EXPECT_EQ(LinkAlignmentOf(0x50000181), LinkAlignment::Center);
}

TEST(LinkLayoutTest, PictureKindsShowNoText) {
    for (std::uint32_t kind = 0; kind <= 255; ++kind) {
        const bool picture = (kind >= 3 && kind <= 9) || (kind >= 13 && kind <= 15);
        EXPECT_EQ(ShowsText(0x50000100 | kind), !picture) << kind;
    }
}

TEST(LinkLayoutTest, ALinkAloneIsAligned) {
    const PixelSize link{40, 13};
    EXPECT_EQ(LayOutLink(100, LinkAlignment::Left, {}, link, {}).link, (PixelRect{0, 0, 40, 13}));
    EXPECT_EQ(LayOutLink(100, LinkAlignment::Center, {}, link, {}).link,
              (PixelRect{30, 0, 70, 13}));
    EXPECT_EQ(LayOutLink(100, LinkAlignment::Right, {}, link, {}).link,
              (PixelRect{60, 0, 100, 13}));
}

TEST(LinkLayoutTest, TheLinkFollowsThePrefixAndTheSuffixFollowsTheLink) {
    const LinkLayout left = LayOutLink(100, LinkAlignment::Left, {10, 13}, {20, 14}, {30, 13});
    EXPECT_EQ(left.prefix, (PixelRect{0, 0, 10, 13}));
    EXPECT_EQ(left.link, (PixelRect{10, 0, 30, 14}));
    EXPECT_EQ(left.suffix, (PixelRect{30, 0, 60, 13}));

    const LinkLayout right = LayOutLink(100, LinkAlignment::Right, {10, 13}, {20, 14}, {30, 13});
    EXPECT_EQ(right.prefix, (PixelRect{40, 0, 50, 13}));
    EXPECT_EQ(right.link, (PixelRect{50, 0, 70, 14}));
    EXPECT_EQ(right.suffix, (PixelRect{70, 0, 100, 13}));
}

TEST(LinkLayoutTest, ATextThatIsTooWideBeginsAtTheLeftEdge) {
    for (const LinkAlignment alignment :
         {LinkAlignment::Left, LinkAlignment::Center, LinkAlignment::Right})
        EXPECT_EQ(LayOutLink(30, alignment, {}, {40, 13}, {}).link, (PixelRect{0, 0, 40, 13}));
}

}  // namespace
}  // namespace tarn
