// The settings text that is embedded in an executable.

#include <map>
#include <utility>

#include "fuzz/fuzz_input.h"
#include "settings/embedded_settings.h"

namespace {

using tarn::fuzz::Require;
using Values = std::map<std::pair<std::wstring, std::wstring>, std::wstring>;

void AddNaively(std::wstring line, std::wstring& section, Values& values) {
    while (!line.empty() && line[0] <= 32) line.erase(0, 1);
    if (line.empty()) return;
    std::wstring trimmed = line;
    while (trimmed.back() <= 32) trimmed.pop_back();
    if (trimmed.size() >= 2 && trimmed[0] == L'[' && trimmed.back() == L']') {
        section = trimmed.substr(1, trimmed.size() - 2);
        return;
    }
    const std::size_t equals = line.find(L'=');
    const std::wstring key = line.substr(0, equals);
    values[{section, key}] = equals == std::wstring::npos ? L"" : line.substr(equals + 1);
}

Values NaiveParse(std::wstring text) {
    if (!text.empty() && text[0] == 0xFEFF) text.erase(0, 1);
    Values values;
    std::wstring section;
    std::wstring line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') {
            AddNaively(line, section, values);
            line.clear();
            ++i;
        } else {
            line += text[i];
        }
    }
    AddNaively(line, section, values);
    return values;
}

std::wstring Write(const Values& values) {
    std::wstring text;
    for (const auto& [name, value] : values)
        text += L'[' + name.first + L"]\r\n" + name.second + L'=' + value + L"\r\n";
    return text;
}

void CheckLookUps(const tarn::EmbeddedSettings& settings, const Values& values) {
    for (const auto& [name, value] : values) {
        Require(settings.Find(name.first, name.second) == value);
        // Neither section and key exchanged nor a similar spelling is found.
        for (const auto& other :
             {std::pair(name.second, name.first), std::pair(name.first, name.second + L' '),
              std::pair(name.first + L'+', name.second)}) {
            const auto at = values.find(other);
            Require(settings.Find(other.first, other.second) ==
                    (at == values.end() ? L"" : at->second));
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text = tarn::fuzz::FuzzInput(data, size).TakeText();
    const Values values = NaiveParse(text);
    CheckLookUps(tarn::EmbeddedSettings(text), values);
    // In another order, the text has the same settings.
    CheckLookUps(tarn::EmbeddedSettings(Write(values)), values);
    return 0;
}
