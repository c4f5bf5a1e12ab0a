#include "tests/fake_jvm/script.h"

#include <algorithm>
#include <cstdlib>

#include "base/windows.h"
#include "tests/fake_jvm/call_log.h"

namespace fake_jvm {

namespace {

std::string ReadScript() {
    std::wstring path;
    if (!ReadEnvironment(L"FAKE_JVM_SCRIPT", path) || path.empty()) return {};
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return {};
    std::string text(GetFileSize(file, nullptr), '\0');
    DWORD read = 0;
    ReadFile(file, text.data(), static_cast<DWORD>(text.size()), &read, nullptr);
    CloseHandle(file);
    text.resize(read);
    return text;
}

std::string Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(" \t\r") - first + 1));
}

}  // namespace

Script& Script::Get() {
    static Script script;
    return script;
}

Script::Script() {
    const std::string text = ReadScript();
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        Line line;
        line.text = Trimmed(std::string_view(text).substr(start, end - start));
        start = end + 1;
        if (line.text.empty() || line.text.front() == '#') continue;
        const std::size_t equals = line.text.find(" =");
        if (equals != std::string::npos) {
            line.name = Trimmed(std::string_view(line.text).substr(0, equals));
            line.value = Trimmed(std::string_view(line.text).substr(equals + 2));
        }
        lines_.push_back(line);
    }
}

std::vector<std::string> Script::Values(std::string_view name) const {
    std::vector<std::string> values;
    for (const Line& line : lines_) {
        if (line.name == name) values.push_back(line.value);
    }
    return values;
}

bool Script::Has(std::string_view name) const {
    return !Values(name).empty();
}

std::string Script::Value(std::string_view name, std::string_view otherwise) const {
    const auto values = Values(name);
    return values.empty() ? std::string(otherwise) : values.back();
}

int Script::Number(std::string_view name, int otherwise) const {
    const auto values = Values(name);
    return values.empty() ? otherwise : std::atoi(values.back().c_str());
}

bool Script::HasLine(std::string_view line) const {
    return std::any_of(lines_.begin(), lines_.end(),
                       [&](const Line& each) { return each.text == line; });
}

Outcome Script::NextCall(std::string_view function) {
    auto counter = std::find_if(counters_.begin(), counters_.end(),
                                [&](const Counter& each) { return each.function == function; });
    if (counter == counters_.end()) {
        counter = counters_.insert(counter, Counter{std::string(function), 0});
    }
    const std::string number = std::to_string(++counter->calls);
    const auto says = [&](const char* verb) {
        const std::string start = std::string(verb) + ' ' + std::string(function);
        return HasLine(start) || HasLine(start + ' ' + number);
    };
    if (says("throw")) return Outcome::Throw;
    if (says("fail")) return Outcome::Fail;
    return Outcome::Normal;
}

std::string Unescape(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            plain += text[i];
            continue;
        }
        switch (text[++i]) {
            case 'n':
                plain += '\n';
                break;
            case 'r':
                plain += '\r';
                break;
            case 't':
                plain += '\t';
                break;
            default:
                plain += text[i];
                break;
        }
    }
    return plain;
}

}  // namespace fake_jvm
