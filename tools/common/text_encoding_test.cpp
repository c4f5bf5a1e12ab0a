#include "tools/common/text_encoding.h"

#include <gtest/gtest.h>

namespace tarn::tools {
namespace {

TEST(TextEncoding, IsConvertedInBothDirections) {
    const std::string text = "a \xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80";
    EXPECT_EQ(WideOf(text), L"a \u00E4 \u20AC \U0001F600");
    EXPECT_EQ(Utf8Of(WideOf(text)), text);
}

TEST(TextEncoding, ReplacesInvalidUtf8) {
    EXPECT_EQ(WideOf("\xFF"
                     "a"),
              L"\uFFFDa");
    EXPECT_EQ(WideOf("\xC3"), L"\uFFFD");
    EXPECT_EQ(WideOf("\xC0\x80"), L"\uFFFD\uFFFD");
    EXPECT_EQ(WideOf("\xE2\x28\xA1"), L"\uFFFD(\uFFFD");
}

TEST(TextEncoding, ReplacesLoneSurrogates) {
    const wchar_t lone[] = {L'a', static_cast<wchar_t>(0xD83D), L'b', 0};
    EXPECT_EQ(Utf8Of(std::wstring_view(lone)),
              "a\xEF\xBF\xBD"
              "b");
}

TEST(TextEncoding, WritesUtf16InSurrogatePairs) {
    const std::string text = "a\xE2\x82\xAC\xF0\x9F\x98\x80";
    EXPECT_EQ(Utf16Of(text), u"a\u20AC\U0001F600");
    EXPECT_EQ(Utf8Of(Utf16Of(text)), text);
}

TEST(TextEncoding, PreservesThePath) {
    const std::string typed = "caf\xC3\xA9/\xD0\xB6.ini";
    EXPECT_EQ(Utf8OfPath(PathOf(typed)), typed);
}

}  // namespace
}  // namespace tarn::tools
