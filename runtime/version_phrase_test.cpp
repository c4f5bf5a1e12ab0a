#include "runtime/version_phrase.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

void ExpectPhrase(const wchar_t* minimum, const wchar_t* maximum, unsigned id, const wchar_t* first,
                  const wchar_t* second) {
    const VersionPhrase phrase = ChooseVersionPhrase(MinimumBound(minimum), MaximumBound(maximum));
    EXPECT_EQ(phrase.textId, id);
    EXPECT_EQ(phrase.first, first);
    EXPECT_EQ(phrase.second, second);
}

TEST(VersionPhraseTest, WithoutBoundsTheLatestIsRequested) {
    ExpectPhrase(L"any", L"any", 217, L"", L"");
    ExpectPhrase(L"", L"", 217, L"", L"");
    // Not the word "any", but a text without digits.
    ExpectPhrase(L"Any", L"Any", 217, L"", L"");
}

TEST(VersionPhraseTest, ASingleBoundIsStated) {
    ExpectPhrase(L"any", L"1.8", 218, L"1.8", L"");
    ExpectPhrase(L"", L"1.8.0_231", 218, L"1.8.0.231", L"");
    ExpectPhrase(L"11.0.2", L"any", 219, L"11.0.2", L"");
    ExpectPhrase(L"11", L"", 219, L"11.0", L"");
}

TEST(VersionPhraseTest, EqualBoundsStateOneVersion) {
    ExpectPhrase(L"1.8.0_231", L"1.8.0_231", 220, L"1.8.0.231", L"");
}

TEST(VersionPhraseTest, DifferentBoundsStateARange) {
    ExpectPhrase(L"1.6", L"1.8", 221, L"1.6", L"1.8");
    // The unwritten parts of the bounds differ, so equal texts are a range.
    ExpectPhrase(L"1.8", L"1.8", 221, L"1.8", L"1.8");
    ExpectPhrase(L"17", L"11", 221, L"17.0", L"11.65535");
}

}  // namespace
}  // namespace tarn
