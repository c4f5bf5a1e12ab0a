#include "tests/support/fake_jvm_log.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/text.h"

namespace tarn::test {

std::vector<FakeJvmLog::Line> FakeJvmLog::Lines() const {
    std::string bytes = ReadFileBytes(file_);
    // A line without an end is still being written.
    bytes.resize(bytes.rfind('\n') == std::string::npos ? 0 : bytes.rfind('\n') + 1);
    std::vector<Line> lines;
    for (const std::string& each : SplitLines(bytes)) {
        const std::size_t tab = each.find('\t');
        if (tab == std::string::npos) continue;
        lines.push_back({std::stoul(each.substr(0, tab)), each.substr(tab + 1)});
    }
    return lines;
}

std::vector<std::string> FakeJvmLog::Texts() const {
    std::vector<std::string> texts;
    for (Line& line : Lines()) texts.push_back(std::move(line.text));
    return texts;
}

bool FakeJvmLog::Has(std::string_view text) const {
    const auto texts = Texts();
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

std::size_t FakeJvmLog::Count(std::string_view start) const {
    const auto texts = Texts();
    return static_cast<std::size_t>(
        std::count_if(texts.begin(), texts.end(),
                      [&](const std::string& each) { return each.starts_with(start); }));
}

std::string FakeJvmLog::After(std::string_view start) const {
    for (const std::string& each : Texts()) {
        if (each.starts_with(start)) return each.substr(start.size());
    }
    return {};
}

bool FakeJvmLog::WaitFor(std::string_view start, std::chrono::milliseconds timeLimit) const {
    if (WaitUntil([&] { return Count(start) != 0; }, timeLimit)) return true;
    std::string all;
    for (const std::string& each : Texts()) all += each + '\n';
    ADD_FAILURE() << "no line begins with " << start << " in the log:\n" << all;
    return false;
}

std::vector<std::string> FakeJvmLog::Options() const {
    std::vector<std::string> options;
    for (const std::string& each : Texts()) {
        if (!each.starts_with("option ")) continue;
        options.push_back(each.substr(each.find(' ', 7) + 1));
    }
    if (options.size() >= 2) options.resize(options.size() - 2);
    return options;
}

std::vector<std::string> FakeJvmLog::Calls() const {
    std::vector<std::string> calls;
    for (const std::string& each : Texts()) {
        const std::size_t bracket = each.find('(');
        const bool isCall = bracket != std::string::npos && each.find(' ') > bracket;
        const bool isLook =
            each.starts_with("ExceptionCheck") || each.starts_with("ExceptionOccurred");
        if (isCall && !isLook && !each.starts_with("JNI_")) calls.push_back(each);
    }
    return calls;
}

std::vector<std::string> FakeJvmLog::Violations() const {
    std::vector<std::string> violations;
    for (const std::string& each : Texts()) {
        if (each.starts_with("VIOLATION")) violations.push_back(each);
    }
    return violations;
}

}  // namespace tarn::test
