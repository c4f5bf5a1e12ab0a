#include "tests/failing_calls/expectations.h"

#include <sstream>
#include <tuple>

#include "tests/failing_calls/outcome.h"
#include "tests/support/paths.h"
#include "tests/support/text.h"

namespace tarn::test {

namespace {

constexpr char kTab = '\t';

}  // namespace

Expectations::Expectations(const std::string& scenario) {
    const std::wstring file =
        GetPaths().callOutcomes + L'\\' + std::wstring(scenario.begin(), scenario.end()) + L".txt";
    for (const std::string& line : SplitLines(ReadFileBytes(file))) {
        const std::vector<std::string> fields = SplitFields(line);
        if (fields.size() != 4) continue;
        std::istringstream calls(fields[2]);
        for (std::string call; calls >> call;) {
            outcomes_[fields[0] + kTab + fields[1] + kTab + call].insert(fields[3]);
        }
    }
}

std::set<std::string> Expectations::OutcomesOf(const CallPoint& point) const {
    const auto found = outcomes_.find(point.function + kTab + point.subject + kTab +
                                      OccurrenceText(point.role, point.occurrence));
    return found != outcomes_.end() ? found->second : std::set<std::string>{kGoesOn};
}

std::wstring FolderToRecordIn() {
    std::wstring folder(MAX_PATH, L'\0');
    folder.resize(GetEnvironmentVariableW(L"TARN_EVERY_CALL", folder.data(), MAX_PATH));
    return folder;
}

void WriteOutcomes(const std::wstring& file, const std::string& title,
                   const std::vector<std::pair<CallPoint, std::string>>& outcomes) {
    // A set, because two iterations of a loop may count as one call.
    using Calls = std::set<std::pair<unsigned, unsigned>>;
    std::map<std::tuple<std::string, std::string, std::string>, Calls> lines;
    for (const auto& [point, outcome] : outcomes) {
        lines[{point.function, point.subject, outcome}].insert({point.role, point.occurrence});
    }
    std::string text = "# " + title + '\n';
    for (const auto& [key, calls] : lines) {
        const auto& [function, subject, outcome] = key;
        text += function + kTab + subject + kTab;
        const char* separator = "";
        for (const auto& [role, occurrence] : calls) {
            text += separator + OccurrenceText(role, occurrence);
            separator = " ";
        }
        text += kTab + outcome + '\n';
    }
    WriteFileBytes(file, text);
}

}  // namespace tarn::test
