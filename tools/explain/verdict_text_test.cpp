#include "tools/explain/verdict_text.h"

#include <gtest/gtest.h>

#include <set>

namespace tarn::tools {
namespace {

SearchReport RegistrySearch() {
    SubkeyReport chosen;
    chosen.name = L"17";
    chosen.verdict = SubkeyVerdict::Chosen;
    chosen.runtime.version.parts = {17, 0, 9, 0};
    chosen.runtime.home = L"C:\\J\u00E4va\\";
    chosen.runtime.server = true;
    SubkeyReport below = chosen;
    below.verdict = SubkeyVerdict::RankedBelow;
    below.rank = 1;
    below.reason = ChoiceReason::Server;
    SubkeyReport rejected;
    rejected.name = L"9";
    rejected.verdict = SubkeyVerdict::AboveMaximum;
    rejected.reason = ChoiceReason::Version;

    SearchReport search;
    search.sources.push_back({RuntimeSource::Configured, SourceVerdict::NoJvmLibrary, L"C:\\x\\"});
    SourceReport registry{RuntimeSource::Registry, SourceVerdict::Taken, L"C:\\J\u00E4va\\"};
    registry.roots.push_back(
        {RegistryRoots().data(), RootVerdict::Searched, {chosen, below, rejected}});
    registry.preferred = 1;
    search.sources.push_back(registry);
    return search;
}

TEST(VerdictTextTest, ListsTheSourcesInOrder) {
    const auto lines = DescribeSearch(RegistrySearch(), {L"9", L"17"});
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].source, "configured");
    EXPECT_EQ(lines[0].verdict, "no-jvm-library");
    EXPECT_EQ(lines[0].home, "C:\\x\\");
    EXPECT_EQ(lines[0].preferred, std::nullopt);
    EXPECT_EQ(lines[1].source, "registry");
    EXPECT_EQ(lines[1].home, "C:\\J\xC3\xA4va\\");
    EXPECT_EQ(lines[1].preferred, "17");
}

TEST(VerdictTextTest, DescribesEachSubkeyAsFarAsItWasRead) {
    const auto lines = DescribeSearch(RegistrySearch(), {L"9", L"17"});
    ASSERT_EQ(lines.at(1).roots.size(), 1U);
    EXPECT_EQ(lines[1].roots[0].key, "Software\\JavaSoft\\JDK");
    const auto& subkeys = lines[1].roots[0].subkeys;
    ASSERT_EQ(subkeys.size(), 3U);
    EXPECT_EQ(subkeys[0].verdict, "chosen");
    EXPECT_EQ(subkeys[0].version, "17.0.9");
    EXPECT_EQ(subkeys[0].reason, "");
    EXPECT_TRUE(subkeys[0].server);
    EXPECT_EQ(subkeys[1].verdict, "ranked-below");
    EXPECT_EQ(subkeys[1].rank, 1U);
    EXPECT_EQ(subkeys[1].reason, "server");
    EXPECT_EQ(subkeys[2].verdict, "above-maximum");
    EXPECT_FALSE(subkeys[2].isCandidate);
    EXPECT_EQ(subkeys[2].reason, "");
}

TEST(VerdictTextTest, HasADistinctKeywordAndTextForEachVerdict) {
    std::set<std::string> words;
    for (int each = 0; each <= static_cast<int>(SubkeyVerdict::UnknownVersion); ++each) {
        SearchReport search = RegistrySearch();
        search.sources[1].roots[0].subkeys[0].verdict = static_cast<SubkeyVerdict>(each);
        const std::string word = DescribeSearch(search, {L"", L""})[1].roots[0].subkeys[0].verdict;
        EXPECT_FALSE(SentenceFor(word).empty());
        words.insert(word);
    }
    EXPECT_EQ(words.size(), 11U);
    words.clear();
    for (int each = 0; each <= static_cast<int>(SourceVerdict::NoPairProduct); ++each) {
        SearchReport search;
        search.sources.push_back({RuntimeSource::Shipped, static_cast<SourceVerdict>(each)});
        words.insert(DescribeSearch(search, {})[0].verdict);
    }
    EXPECT_EQ(words.size(), 6U);
}

TEST(VerdictTextTest, NamesEachFurtherSourceAndItsRuntimes) {
    SearchReport search;
    SubkeyReport candidate;
    candidate.name = L"JAVA_HOME";
    candidate.verdict = SubkeyVerdict::OtherMachine;
    for (int each = 0; each <= static_cast<int>(FurtherSource::Folders); ++each) {
        SourceReport& source = search.sources.emplace_back();
        source.source = RuntimeSource::Further;
        source.verdict = SourceVerdict::NoCandidate;
        source.further = static_cast<FurtherSource>(each);
        source.candidates = {candidate};
    }
    std::set<std::string> words;
    std::set<std::string_view> sentences;
    for (const SourceLine& line : DescribeSearch(search, {})) {
        words.insert(line.source);
        sentences.insert(SentenceFor(line.source));
        EXPECT_EQ(line.verdict, "no-candidate");
        ASSERT_EQ(line.candidates.size(), 1U);
        EXPECT_EQ(line.candidates[0].name, "JAVA_HOME");
        EXPECT_EQ(line.candidates[0].verdict, "other-machine");
    }
    EXPECT_EQ(words.size(), 5U);
    EXPECT_EQ(sentences.size(), 5U);
}

TEST(VerdictTextTest, SaysWhatASourceWithoutACandidateLacks) {
    SourceLine line;
    line.verdict = "no-candidate";
    line.source = "registry";
    EXPECT_EQ(VerdictSentence(line), "no registered runtime qualifies");
    line.source = "further-path";
    EXPECT_EQ(VerdictSentence(line), "none found");
    line.candidates.emplace_back();
    EXPECT_EQ(VerdictSentence(line), "its runtime does not qualify");
    line.source = "further-folders";
    EXPECT_EQ(VerdictSentence(line), "no runtime in them qualifies");
    line.verdict = "taken";
    EXPECT_EQ(VerdictSentence(line), "taken");
}

TEST(VerdictTextTest, ReturnsAnUnknownKeywordUnchanged) {
    EXPECT_EQ(SentenceFor("taken"), "taken");
    EXPECT_EQ(SentenceFor("never heard of"), "never heard of");
}

}  // namespace
}  // namespace tarn::tools
