// Every call that the launcher makes fails once, and what becomes of the launch is compared with
// what tests/failing_calls/outcomes says. TARN_EVERY_CALL names a folder: then every call is tried
// instead of a sample, and what was found is written there (scripts/fail_every_call.sh).

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/failing_calls/call_points.h"
#include "tests/failing_calls/expectations.h"
#include "tests/failing_calls/outcome.h"
#include "tests/failing_calls/scenario.h"
#include "tests/support/text.h"

namespace tarn::test {
namespace {

std::vector<NamedScenario> AllScenarios() {
    std::vector<NamedScenario> all;
    for (const auto& some :
         {PlainScenarios(), SplashScenarios(), DialogScenarios(), InstanceScenarios()}) {
        all.insert(all.end(), some.begin(), some.end());
    }
    return all;
}

std::wstring FolderForOutcomes() {
    std::wstring folder(MAX_PATH, L'\0');
    folder.resize(GetEnvironmentVariableW(L"TARN_EVERY_CALL", folder.data(), MAX_PATH));
    return folder;
}

class FailingCalls : public testing::TestWithParam<NamedScenario> {};

TEST_P(FailingCalls, EndAsTheyShould) {
    const std::wstring folder = FolderForOutcomes();
    const Expectations expectations(GetParam().name);
    const auto scenario = GetParam().make();
    const Facts undisturbed = scenario->Run(L"");
    const auto calls = scenario->Calls();
    EXPECT_TRUE(IsDecent(undisturbed, undisturbed, scenario->ApplicationCode()));

    std::vector<std::pair<CallPoint, std::string>> outcomes;
    for (const CallPoint& point :
         folder.empty() ? SomeCalls(calls, GetParam().most) : EveryCall(calls)) {
        const Facts facts = scenario->Run(point.Wish(ERROR_ACCESS_DENIED));
        const std::string outcome = OutcomeOf(facts, undisturbed);
        EXPECT_TRUE(IsDecent(facts, undisturbed, scenario->ApplicationCode()))
            << point.Text() << ": " << outcome;
        if (folder.empty()) {
            EXPECT_THAT(expectations.OutcomesOf(point.function), testing::Contains(outcome))
                << point.Text() << " (scripts/fail_every_call.sh tells how all calls end)";
        }
        outcomes.emplace_back(point, outcome);
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
