// Each call of the launcher fails once, and the outcome is compared with the one that
// tests/failing_calls/outcomes records for exactly that call. If TARN_EVERY_CALL names a folder,
// every call fails instead of a sample, and the outcomes are written there
// (scripts/fail_every_call.sh).

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/failing_calls/call_points.h"
#include "tests/failing_calls/expectations.h"
#include "tests/failing_calls/outcome.h"
#include "tests/failing_calls/scenario.h"
#include "tests/support/text.h"

namespace tarn::test {
namespace {

class FailingCalls : public testing::TestWithParam<NamedScenario> {};

TEST_P(FailingCalls, EndAsRecorded) {
    const std::wstring folder = FolderToRecordIn();
    const Expectations expectations(GetParam().name);
    const auto scenario = GetParam().make();
    const Facts undisturbed = scenario->Run(L"");
    const auto calls = scenario->Calls();
    EXPECT_TRUE(IsAcceptable(undisturbed, undisturbed, scenario->ApplicationCode()));

    const auto normalize = [&](const std::string& text) { return scenario->Normalized(text); };
    std::vector<std::pair<CallPoint, std::string>> outcomes;
    const bool isSample = folder.empty() && GetParam().most != kEveryCall;
    for (const CallPoint& point : isSample ? SampleOfCalls(calls, normalize, GetParam().most)
                                           : EveryCall(calls, normalize)) {
        const Facts facts = scenario->Run(point.FailureSpec(ERROR_ACCESS_DENIED));
        const std::string outcome = OutcomeOf(facts, undisturbed);
        EXPECT_TRUE(IsAcceptable(facts, undisturbed, scenario->ApplicationCode()))
            << point.Text() << ": " << outcome;
        // Not every launch receives the same window messages.
        const auto failed = FailedCalls(scenario->Calls(), normalize);
        if (failed.empty()) {
            EXPECT_EQ(outcome, kGoesOn) << point.Text() << " was not called";
            continue;
        }
        if (folder.empty()) {
            EXPECT_THAT(expectations.OutcomesOf(failed[0]), testing::Contains(outcome))
                << failed[0].Text() << " (scripts/fail_every_call.sh records the outcomes)";
        }
        outcomes.emplace_back(failed[0], outcome);
    }
    if (folder.empty()) return;
    const std::string name = GetParam().name;
    WriteOutcomes(folder + L'\\' + std::wstring(name.begin(), name.end()) + L".txt",
                  GetParam().title, outcomes);
}

INSTANTIATE_TEST_SUITE_P(Of, FailingCalls, testing::ValuesIn(AllScenarios()),
                         [](const auto& each) { return std::string(each.param.name); });

}  // namespace
}  // namespace tarn::test
