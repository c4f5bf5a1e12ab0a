#include "tests/failing_calls/pair_expectations.h"

#include "tests/support/paths.h"
#include "tests/support/text.h"

namespace tarn::test {

namespace {

std::string Fields(const CallPoint& point) {
    return point.function + '\t' + point.subject + '\t' +
           OccurrenceText(point.role, point.occurrence) + '\t';
}

std::string Fields(const PairOutcome& pair) {
    return Fields(pair.first) + (pair.second ? Fields(*pair.second) : "-\t-\t-\t");
}

}  // namespace

PairExpectations::PairExpectations(const std::string& scenario) : alone_(scenario) {
    const std::wstring file = GetPaths().callOutcomes + L"\\pairs\\" +
                              std::wstring(scenario.begin(), scenario.end()) + L".txt";
    for (const std::string& line : SplitLines(ReadFileBytes(file))) {
        const std::size_t outcome = line.rfind('\t') + 1;
        if (!line.starts_with('#')) outcomes_[line.substr(0, outcome)].insert(line.substr(outcome));
    }
}

std::set<std::string> PairExpectations::OutcomesOf(const PairOutcome& pair) const {
    const auto found = outcomes_.find(Fields(pair));
    if (found != outcomes_.end()) return found->second;
    std::set<std::string> outcomes = alone_.OutcomesOf(pair.first);
    if (pair.second) outcomes.merge(alone_.OutcomesOf(*pair.second));
    return outcomes;
}

void WritePairOutcomes(const std::wstring& file, const std::string& title, const CallCounts& counts,
                       const std::vector<PairOutcome>& outcomes) {
    std::string text = "# " + title + '\n';
    for (const auto& [function, count] : counts) {
        text += "# " + function + ' ' + std::to_string(count) + '\n';
    }
    // A pair that both kinds of failures have in common is written once.
    std::set<std::string> lines;
    for (const PairOutcome& each : outcomes) lines.insert(Fields(each) + each.outcome + '\n');
    for (const std::string& line : lines) text += line;
    WriteFileBytes(file, text);
}

}  // namespace tarn::test
