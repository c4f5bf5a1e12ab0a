#include "ui/hyperlink/link_layout.h"

#include <gtest/gtest.h>

#include <string>

namespace tarn {
namespace {

/// A label and its pieces.
struct LabelCase {
    const char* name;
    std::wstring_view text;
    std::wstring_view prefix;
    std::wstring_view link;
    std::wstring_view suffix;
};

class LinkMarkup : public testing::TestWithParam<LabelCase> {};

TEST_P(LinkMarkup, DividesTheLabel) {
    const LinkLabel label = ScanLinkMarkup(GetParam().text);
    EXPECT_EQ(label.prefix, GetParam().prefix);
    EXPECT_EQ(label.link, GetParam().link);
    EXPECT_EQ(label.suffix, GetParam().suffix);
}

constexpr LabelCase kLabels[] = {
    {"WithoutMarkUp", L"http://example.com/", L"", L"http://example.com/", L""},
    {"Empty", L"", L"", L"", L""},
    {"LinkAtTheEnd", L"Get <A>Java</A>", L"Get ", L"Java", L""},
    {"LinkOnly", L"<A>Java</A>", L"", L"Java", L""},
    {"LinkInTheMiddle", L"Get <A>Java</A> now", L"Get ", L"Java", L" now"},
    {"SmallLetters", L"Get <a>Java</a>", L"Get ", L"Java", L""},
    {"MixedCase", L"Get <a>Java</A>.", L"Get ", L"Java", L"."},
    {"NoClosingMark", L"Get <A>Java", L"Get ", L"Java", L""},
    {"NothingAfterTheOpeningMark", L"Get <A>", L"Get ", L"", L""},
    {"IncompleteClosingMark", L"Get <A>Java</A", L"Get ", L"Java</A", L""},
    {"TwoLinks", L"<A>a</A>b<A>c</A>", L"", L"a", L"b<A>c</A>"},
    {"TwoOpeningMarks", L"<A>a<A>b</A>", L"", L"a<A>b", L""},
    {"ClosingMarkFirst", L"x</A>y<A>z</A>", L"x</A>y", L"z", L""},
    {"ClosingMarkOnly", L"x</A>", L"", L"x</A>", L""},
    {"OtherTags", L"<A <B> < A> <A href>", L"", L"<A <B> < A> <A href>", L""},
    {"Bracket", L"<", L"", L"<", L""},
    {"BracketAndLetter", L"<A", L"", L"<A", L""},
};

INSTANTIATE_TEST_SUITE_P(Labels, LinkMarkup, testing::ValuesIn(kLabels),
                         [](const auto& label) { return std::string(label.param.name); });

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
    const struct {
        LinkAlignment alignment;
        LinkLayout layout;
    } kLayouts[] = {
        {LinkAlignment::Left, {{0, 0, 10, 13}, {10, 0, 30, 14}, {30, 0, 60, 13}}},
        {LinkAlignment::Center, {{20, 0, 30, 13}, {30, 0, 50, 14}, {50, 0, 80, 13}}},
        {LinkAlignment::Right, {{40, 0, 50, 13}, {50, 0, 70, 14}, {70, 0, 100, 13}}},
    };
    for (const auto& [alignment, layout] : kLayouts) {
        const LinkLayout actual = LayOutLink(100, alignment, {10, 13}, {20, 14}, {30, 13});
        EXPECT_EQ(actual.prefix, layout.prefix);
        EXPECT_EQ(actual.link, layout.link);
        EXPECT_EQ(actual.suffix, layout.suffix);
    }
}

TEST(LinkLayoutTest, ATextThatIsTooWideBeginsAtTheLeftEdge) {
    for (const LinkAlignment alignment :
         {LinkAlignment::Left, LinkAlignment::Center, LinkAlignment::Right})
        EXPECT_EQ(LayOutLink(30, alignment, {}, {40, 13}, {}).link, (PixelRect{0, 0, 40, 13}));
}

}  // namespace
}  // namespace tarn
