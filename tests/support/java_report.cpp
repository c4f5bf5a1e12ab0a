#include "tests/support/java_report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>

#include "tests/support/text.h"

namespace tarn::test {

namespace {

// Printable ASCII is unchanged; `\uNNNN` is a UTF-16 unit.
std::wstring Unescape(std::string_view text) {
    std::wstring result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 5 >= text.size()) {
            result += static_cast<wchar_t>(text[i]);
            continue;
        }
        unsigned unit = 0;
        std::from_chars(text.data() + i + 2, text.data() + i + 6, unit, 16);
        result += static_cast<wchar_t>(unit);
        i += 5;
    }
    return result;
}

}  // namespace

std::vector<std::wstring> JavaReport::All(std::string_view name) const {
    const std::string bytes = ReadFileBytes(file_);
    const std::string start = std::string(name) + '=';
    std::vector<std::wstring> values;
    std::size_t at = 0;
    // A line without an end is still being written.
    for (std::size_t end = bytes.find('\n'); end != std::string::npos;
         at = end + 1, end = bytes.find('\n', at)) {
        const std::string_view line = std::string_view(bytes).substr(at, end - at);
        if (line.starts_with(start)) values.push_back(Unescape(line.substr(start.size())));
    }
    return values;
}

std::wstring JavaReport::One(std::string_view name) const {
    const std::vector<std::wstring> values = All(name);
    EXPECT_EQ(values.size(), 1U) << "reported as " << name << "; the report is\n"
                                 << ReadFileBytes(file_).substr(0, 4000);
    return values.size() == 1 ? values.front() : std::wstring();
}

long long JavaReport::Number(std::string_view name) const {
    const std::wstring value = One(name);
    wchar_t* end = nullptr;
    const long long number = std::wcstoll(value.c_str(), &end, 10);
    EXPECT_TRUE(!value.empty() && *end == L'\0') << name << " is no number: " << ToUtf8(value);
    return number;
}

bool JavaReport::Has(std::string_view name, std::wstring_view value) const {
    const std::vector<std::wstring> values = All(name);
    return std::find(values.begin(), values.end(), value) != values.end();
}

bool JavaReport::WaitFor(std::string_view name, std::wstring_view value,
                         std::chrono::milliseconds timeLimit) const {
    const bool came = WaitUntil([&] { return Has(name, value); }, timeLimit);
    EXPECT_TRUE(came) << "no " << name << "=" << ToUtf8(value) << " in the report\n"
                      << ReadFileBytes(file_).substr(0, 4000);
    return came;
}

}  // namespace tarn::test
