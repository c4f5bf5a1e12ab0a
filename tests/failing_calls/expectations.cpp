#include "tests/failing_calls/expectations.h"

#include "tests/support/paths.h"
#include "tests/support/text.h"

namespace tarn::test {

namespace {

constexpr char kMark = '\t';

}  // namespace

Expectations::Expectations(const std::string& scenario) {
    const std::wstring file =
        GetPaths().callOutcomes + L'\\' + std::wstring(scenario.begin(), scenario.end()) + L".txt";
    for (const std::string& line : SplitLines(ReadFileBytes(file))) {
        const std::size_t first = line.find(kMark);
        const std::size_t second = line.find(kMark, first + 1);
        if (second == std::string::npos) continue;
        outcomes_[line.substr(0, first)].insert(line.substr(second + 1));
    }
}

const std::set<std::string>& Expectations::OutcomesOf(const std::string& function) const {
    static const std::set<std::string> none;
    const auto found = outcomes_.find(function);
    return found != outcomes_.end() ? found->second : none;
}

void WriteOutcomes(const std::wstring& file, const std::string& title,
                   const std::vector<std::pair<CallPoint, std::string>>& outcomes) {
    std::map<std::pair<std::string, std::string>, std::string> lines;
    for (const auto& [point, outcome] : outcomes) {
        std::string& calls = lines[{point.function, outcome}];
        if (!calls.empty()) calls += ' ';
        if (point.role != 1) calls += std::to_string(point.role) + '/';
        calls += std::to_string(point.number);
    }
    std::string text = "# " + title + '\n';
    for (const auto& [key, calls] : lines) {
        text += key.first + kMark + calls + kMark + key.second + '\n';
    }
    WriteFileBytes(file, text);
}

}  // namespace tarn::test
