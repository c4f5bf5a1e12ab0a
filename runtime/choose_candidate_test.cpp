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

/// The homes of the ranked candidates, one after the other.
std::wstring Ranked(const std::vector<RuntimeCandidate>& candidates,
                    const RuntimeSearchPolicy& policy = {}) {
    std::wstring homes;
    for (const RuntimeCandidate* candidate : RankCandidates(candidates, policy)) {
        homes += candidate->home;
    }
    return homes;
}

std::wstring Chosen(const std::vector<RuntimeCandidate>& candidates,
                    const RuntimeSearchPolicy& policy = {}) {
    const RuntimeCandidate* const chosen = ChooseCandidate(candidates, policy);
    return chosen != nullptr ? chosen->home : L"nothing";
}

TEST(ChooseCandidateTest, NothingIsChosenFromNothing) {
    EXPECT_EQ(Chosen({}), L"nothing");
    RuntimeSearchPolicy policy;
    policy.preferredVersions = {L"", L"17"};
    EXPECT_EQ(Chosen({}, policy), L"nothing");
}

TEST(ChooseCandidateTest, TheNewestComesFirst) {
    EXPECT_EQ(Ranked({Candidate(L"1.8", L"a"), Candidate(L"11.0.2", L"b"), Candidate(L"9", L"c"),
                      Candidate(L"1.8.0_231", L"d")}),
              L"bcda");
}

TEST(ChooseCandidateTest, TiesKeepTheOrderInWhichTheyWereFound) {
    EXPECT_EQ(Ranked({Candidate(L"8", L"a"), Candidate(L"17", L"b"), Candidate(L"17.0", L"c"),
                      Candidate(L"17.0.0.0", L"d"), Candidate(L"21", L"e")}),
              L"ebcda");
}

TEST(ChooseCandidateTest, AServerJvmCountsOnlyWhenFavoured) {
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

TEST(ChooseCandidateTest, TheFavouredSourceOverridesServerAndVersion) {
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

TEST(ChooseCandidateTest, TheFirstPreferredVersionThatIsThereIsChosen) {
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

TEST(ChooseCandidateTest, APieceWithoutDigitsAsksForTheBest) {
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

TEST(ChooseCandidateTest, APreferredVersionIsTakenFromTheRankedList) {
    const std::vector<RuntimeCandidate> candidates = {Candidate(L"1.8.0_231", L"a", false, false),
                                                      Candidate(L"1.8.0_100", L"b", false, true),
                                                      Candidate(L"17", L"c", false, true)};
    RuntimeSearchPolicy policy;
    policy.preferredVersions = {L"1.8"};
    EXPECT_EQ(Chosen(candidates, policy), L"b");
}

TEST(PickRankedTest, TellsWhichPreferredVersionChose) {
    const std::vector<RuntimeCandidate> candidates = {Candidate(L"17", L"a"),
                                                      Candidate(L"11", L"b")};
    RuntimeSearchPolicy policy;
    policy.preferredVersions = {L"21", L"11", L"17"};
    EXPECT_EQ(PickRanked(RankCandidates(candidates, policy), policy).preferred, 1);
    policy.preferredVersions = {L"21"};
    EXPECT_EQ(PickRanked(RankCandidates(candidates, policy), policy).preferred, std::nullopt);
}

TEST(RankingRuleTest, NamesTheStrongestDifference) {
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
