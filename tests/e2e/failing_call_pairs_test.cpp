// Two calls of the launcher in a row fail: a call of one of the most called functions and the next
// call of that function in the same thread, and any call and the next one of any function. The
// outcome is compared with the one that tests/failing_calls/outcomes/pairs records for exactly
// these calls. If TARN_EVERY_CALL names a folder, all pairs fail instead of a sample, and the
// outcomes are written there (scripts/fail_every_call.sh).

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/failing_calls/expectations.h"
#include "tests/failing_calls/outcome.h"
#include "tests/failing_calls/pair_expectations.h"
#include "tests/failing_calls/scenario.h"
#include "tests/import_hook/fallible_functions.h"

namespace tarn::test {
namespace {

// In all scenarios together; scripts/call_table.py counts them and checks this list.
constexpr std::string_view kMostCalled[] = {
    "GetWindowLongPtrW", "GetPrivateProfileStringW", "FindFirstFileW",
    "GetModuleHandleW",  "GetProcAddress",           "GetModuleFileNameW",
    "CallWindowProcW",   "DefWindowProcW",           "GetPrivateProfileSectionNamesW",
    "FindResourceW",
};

/// A call that fails, and which of the later calls fails with it (`CallPoint::FailureSpec`).
struct PlannedPair {
    CallPoint first;
    std::wstring_view next;
};

std::vector<PlannedPair> EveryPair(const std::vector<CallPoint>& points, bool failsAnyTwo) {
    std::vector<PlannedPair> pairs;
    for (const CallPoint& each : points) {
        const bool isMostCalled = std::find(std::begin(kMostCalled), std::end(kMostCalled),
                                            each.function) != std::end(kMostCalled);
        if (isMostCalled) pairs.push_back({each, kNextOfFunction});
        if (failsAnyTwo) pairs.push_back({each, kNextOfAny});
    }
    return pairs;
}

/// At most `most` pairs, spaced evenly.
std::vector<PlannedPair> SampleOfPairs(const std::vector<PlannedPair>& all, std::size_t most) {
    if (all.size() <= most) return all;
    std::vector<PlannedPair> some;
    for (std::size_t i = 0; i < most; ++i) some.push_back(all[i * all.size() / most]);
    return some;
}

CallCounts CountCalls(const std::vector<HookedCall>& calls) {
    CallCounts counts;
    for (const HookedCall& each : calls) {
        if (import_hook::CanFail(each.library, each.function)) ++counts[each.function];
    }
    return counts;
}

class FailingCallPairs : public testing::TestWithParam<NamedScenario> {};

TEST_P(FailingCallPairs, EndAsRecorded) {
    const std::wstring folder = FolderToRecordIn();
    const PairExpectations expectations(GetParam().name);
    const auto scenario = GetParam().make();
    const Facts undisturbed = scenario->Run(L"");
    const auto calls = scenario->Calls();
    const auto normalize = [&](const std::string& text) { return scenario->Normalized(text); };

    const auto all = EveryPair(EveryCall(calls, normalize), GetParam().failsAnyTwo);
    std::vector<PairOutcome> outcomes;
    for (const auto& [point, next] :
         folder.empty() ? SampleOfPairs(all, GetParam().mostPairs) : all) {
        const Facts facts = scenario->Run(point.FailureSpec(ERROR_ACCESS_DENIED, next));
        const auto failed = FailedCalls(scenario->Calls(), normalize);
        // Not every launch receives the same window messages.
        if (failed.empty()) continue;
        PairOutcome pair{failed[0], std::nullopt, OutcomeOf(facts, undisturbed)};
        if (failed.size() > 1) pair.second = failed[1];
        const std::string text =
            pair.first.Text() + ", " + (pair.second ? pair.second->Text() : "nothing else");
        EXPECT_TRUE(IsAcceptable(facts, undisturbed, scenario->ApplicationCode()))
            << text << ": " << pair.outcome;
        if (folder.empty()) {
            EXPECT_THAT(expectations.OutcomesOf(pair), testing::Contains(pair.outcome))
                << text << " (scripts/fail_every_call.sh --pairs records the outcomes)";
        }
        outcomes.push_back(std::move(pair));
    }
    if (folder.empty()) return;
    const std::string name = GetParam().name;
    WritePairOutcomes(folder + L"\\pairs\\" + std::wstring(name.begin(), name.end()) + L".txt",
                      GetParam().title, CountCalls(calls), outcomes);
}

INSTANTIATE_TEST_SUITE_P(Of, FailingCallPairs, testing::ValuesIn(AllScenarios()),
                         [](const auto& each) { return std::string(each.param.name); });

}  // namespace
}  // namespace tarn::test
