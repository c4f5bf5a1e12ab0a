#include "runtime/choose_candidate.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

RuntimeCandidate Candidate(const wchar_t* version, const wchar_t* home, bool server = false,
                           bool favored = true) {
    RuntimeCandidate candidate{{}, home, server, favored};
    ParseVersion(version, 0, candidate.version);
    return candidate;
}

/// The homes of the ranked candidates, concatenated.
std::wstring Ranked(const std::vector<RuntimeCandidate>& candidates,
                    const RuntimeSearchPolicy& policy = {}) {
    std::wstring homes;
    for (const RuntimeCandidate* candidate : ChooseCandidate(candidates, policy).ranked) {
        homes += candidate->home;
    }
    return homes;
}

std::wstring Chosen(const std::vector<RuntimeCandidate>& candidates,
                    const RuntimeSearchPolicy& policy = {}) {
    const RuntimeCandidate* const chosen = ChooseCandidate(candidates, policy).candidate;
    return chosen != nullptr ? chosen->home : L"nothing";
}

TEST(ChooseCandidateTest, ChoosesNothingWithoutCandidates) {
    EXPECT_EQ(Chosen({}), L"nothing");
    RuntimeSearchPolicy policy;
    policy.preferredVersions = {L"", L"17"};
    EXPECT_EQ(Chosen({}, policy), L"nothing");
}

TEST(ChooseCandidateTest, RanksTheNewestFirst) {
    EXPECT_EQ(Ranked({Candidate(L"1.8", L"a"), Candidate(L"11.0.2", L"b"), Candidate(L"9", L"c"),
                      Candidate(L"1.8.0_231", L"d")}),
              L"bcda");
}

TEST(ChooseCandidateTest, KeepsTheOrderOfEqualVersions) {
    EXPECT_EQ(Ranked({Candidate(L"8", L"a"), Candidate(L"17", L"b"), Candidate(L"17.0", L"c"),
                      Candidate(L"17.0.0.0", L"d"), Candidate(L"21", L"e")}),
              L"ebcda");
}

TEST(ChooseCandidateTest, RanksAServerJvmFirstOnlyWhenFavoured) {
    const std::vector<RuntimeCandidate> candidates = {Candidate(L"11", L"a", false),
                                                      Candidate(L"1.8", L"b", true),
                                                      Candidate(L"1.7", L"c", true)};
    RuntimeSearchPolicy policy;
    for (const JvmType type : {JvmType::Default, JvmType::Server}) {
        policy.jvmType = type;
        EXPECT_EQ(Ranked(candidates, policy), L"abc");
    }
    policy.jvmType = JvmType::FavorServer;
    EXPECT_EQ(Ranked(candidates, policy), L"bca");
}

TEST(ChooseCandidateTest, RanksTheFavouredSourceBeforeServerAndVersion) {
    const std::vector<RuntimeCandidate> candidates = {
        Candidate(L"21", L"a", true, false), Candidate(L"17", L"b", false, false),
        Candidate(L"11", L"c", false, true), Candidate(L"1.8", L"d", true, true)};
    RuntimeSearchPolicy policy;
    EXPECT_EQ(Ranked(candidates, policy), L"cdab");
    policy.jvmType = JvmType::FavorServer;
    EXPECT_EQ(Ranked(candidates, policy), L"dcab");
    policy.sourceFavouring = false;
    EXPECT_EQ(Ranked(candidates, policy), L"adbc");
    policy.jvmType = JvmType::Default;
    EXPECT_EQ(Ranked(candidates, policy), L"abcd");
}

TEST(ChooseCandidateTest, ChoosesTheFirstPreferredVersionThatIsAvailable) {
    const std::vector<RuntimeCandidate> candidates = {
        Candidate(L"11.0.2", L"a"), Candidate(L"1.8.0_231", L"b"), Candidate(L"1.7.0_80", L"c"),
        Candidate(L"1.8.0_100", L"d")};
    RuntimeSearchPolicy policy;
    policy.preferredVersions = {L"1.7", L"1.8"};
    EXPECT_EQ(Chosen(candidates, policy), L"c");
    policy.preferredVersions = {L"1.6", L"1.8"};
    EXPECT_EQ(Chosen(candidates, policy), L"b");
    policy.preferredVersions = {L"1.8.0_100"};
    EXPECT_EQ(Chosen(candidates, policy), L"d");
    policy.preferredVersions = {L"1.6", L"17"};
    EXPECT_EQ(Chosen(candidates, policy), L"a");
}

TEST(ChooseCandidateTest, APieceWithoutDigitsSelectsTheBest) {
    const std::vector<RuntimeCandidate> candidates = {Candidate(L"1.7", L"a"),
                                                      Candidate(L"17", L"b")};
    RuntimeSearchPolicy policy;
    for (const wchar_t* piece : {L"", L" ", L"any", L"0.0"}) {
        policy.preferredVersions = {piece, L"1.7"};
        EXPECT_EQ(Chosen(candidates, policy), L"b");
        policy.preferredVersions = {L"21", piece};
        EXPECT_EQ(Chosen(candidates, policy), L"b");
    }
}

TEST(ChooseCandidateTest, APreferredVersionSelectsFromTheRankedList) {
    const std::vector<RuntimeCandidate> candidates = {Candidate(L"1.8.0_231", L"a", false, false),
                                                      Candidate(L"1.8.0_100", L"b", false, true),
                                                      Candidate(L"17", L"c", false, true)};
    RuntimeSearchPolicy policy;
    policy.preferredVersions = {L"1.8"};
    EXPECT_EQ(Chosen(candidates, policy), L"b");
}

TEST(ChooseCandidateTest, ReportsThePreferredVersionThatSelected) {
    const std::vector<RuntimeCandidate> candidates = {Candidate(L"17", L"a"),
                                                      Candidate(L"11", L"b")};
    RuntimeSearchPolicy policy;
    policy.preferredVersions = {L"21", L"11", L"17"};
    EXPECT_EQ(ChooseCandidate(candidates, policy).preferred, 1);
    policy.preferredVersions = {L"21"};
    EXPECT_EQ(ChooseCandidate(candidates, policy).preferred, std::nullopt);
}

TEST(ReasonAgainstTest, ReportsAPreferredVersionBeforeTheRankingRules) {
    const std::vector<RuntimeCandidate> candidates = {
        Candidate(L"17", L"a"), Candidate(L"11.0.2", L"b"), Candidate(L"11.0.1", L"c")};
    RuntimeSearchPolicy policy;
    policy.preferredVersions = {L"11"};
    const CandidateChoice choice = ChooseCandidate(candidates, policy);
    EXPECT_EQ(ReasonAgainst(candidates[0], choice, policy), ChoiceReason::PreferredVersion);
    EXPECT_EQ(ReasonAgainst(candidates[2], choice, policy), ChoiceReason::Version);
}

TEST(RankingRuleTest, ReturnsTheFirstRuleThatDistinguishes) {
    RuntimeSearchPolicy policy;
    policy.jvmType = JvmType::FavorServer;
    const RuntimeCandidate one = Candidate(L"17", L"a", true, true);
    EXPECT_EQ(RankingRule(one, Candidate(L"11", L"b", false, false), policy),
              ChoiceReason::Favored);
    EXPECT_EQ(RankingRule(one, Candidate(L"11", L"b", false, true), policy), ChoiceReason::Server);
    EXPECT_EQ(RankingRule(one, Candidate(L"11", L"b", true, true), policy), ChoiceReason::Version);
    EXPECT_EQ(RankingRule(one, Candidate(L"17", L"b", true, true), policy),
              ChoiceReason::FoundEarlier);
    policy.jvmType = JvmType::Server;
    policy.sourceFavouring = false;
    EXPECT_EQ(RankingRule(one, Candidate(L"17", L"b", false, false), policy),
              ChoiceReason::FoundEarlier);
}

}  // namespace
}  // namespace tarn
