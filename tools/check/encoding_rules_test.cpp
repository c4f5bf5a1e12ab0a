#include "tools/check/rules_fixture.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> CheckAs(IniEncoding encoding, std::wstring text, bool isOdd = false) {
    Findings findings;
    CheckEncoding(CheckedSettings("sample.ini", {encoding, std::move(text), isOdd}, false),
                  findings);
    std::vector<std::string> ids;
    for (const Finding& finding : findings.Sorted()) {
        ids.push_back(std::to_string(finding.line) + ' ' + std::string(NameOf(finding.severity)) +
                      ' ' + finding.id);
    }
    return ids;
}

TEST(EncodingRulesTest, AcceptsAsciiAndUtf16WithAMark) {
    EXPECT_THAT(CheckAs(IniEncoding::Ascii, L"[A]\nb=c"), IsEmpty());
    EXPECT_THAT(CheckAs(IniEncoding::Utf16, L"[A]\nb=ü"), IsEmpty());
}

TEST(EncodingRulesTest, IgnoresOtherCharactersInComments) {
    EXPECT_THAT(CheckAs(IniEncoding::Utf8, L"; Grüße\n[A]\nb=c"), IsEmpty());
    EXPECT_THAT(CheckAs(IniEncoding::Utf8, L"; Grüße\n[A]\nb=c\nd=ü"),
                ElementsAre("4 warning utf-8"));
    EXPECT_THAT(CheckAs(IniEncoding::CodePage, L"[A]\nb=ü"), ElementsAre("2 warning code-page"));
}

TEST(EncodingRulesTest, ReportsASectionHiddenByTheUtf8Mark) {
    EXPECT_THAT(CheckAs(IniEncoding::Utf8WithMark, L"[A]\nb=c"), ElementsAre("1 error utf-8-mark"));
    EXPECT_THAT(CheckAs(IniEncoding::Utf8WithMark, L"; x\n[A]\nb=c"),
                ElementsAre("1 note utf-8-mark"));
}

TEST(EncodingRulesTest, RejectsEncodingsThatWindowsDoesNotRead) {
    EXPECT_THAT(CheckAs(IniEncoding::Utf16BigEndian, L"[A]"),
                ElementsAre("0 error utf-16-big-endian"));
    EXPECT_THAT(CheckAs(IniEncoding::Utf16WithoutMark, L"[A]"),
                ElementsAre("0 error utf-16-without-mark"));
    EXPECT_THAT(CheckAs(IniEncoding::Utf32, L"[A]"), ElementsAre("0 error utf-32"));
    EXPECT_THAT(CheckAs(IniEncoding::Utf16, L"[A]", true), ElementsAre("0 warning half-character"));
}

TEST(EncodingRulesTest, ReportsNullCharactersAndOverlongLines) {
    EXPECT_THAT(CheckAs(IniEncoding::Ascii, std::wstring(L"[A]\nb=c\0d", 9)),
                ElementsAre("2 error zero-character"));
    EXPECT_THAT(CheckAs(IniEncoding::Ascii, L"[A]\nb=" + std::wstring(40'000, L'x')),
                ElementsAre("2 warning long-line"));
}

}  // namespace
}  // namespace tarn::tools
