// The program that starts the launcher chooses the command line.

#include <cwctype>
#include <vector>

#include "base/arguments.h"
#include "fuzz/fuzz_input.h"

namespace {

using tarn::fuzz::Require;
using Texts = std::vector<std::wstring>;

// A model that reads one character at a time.
Texts NaiveSplit(const std::wstring& text) {
    enum { Between, Plain, Quoted } state = Between;
    Texts tokens;
    for (const wchar_t c : text) {
        if (state == Between) {
            if (c == L' ') continue;
            tokens.emplace_back();
            state = c == L'"' ? Quoted : Plain;
            if (state == Plain) tokens.back() += c;
        } else if (c == (state == Quoted ? L'"' : L' ')) {
            state = Between;
        } else {
            tokens.back() += c;
        }
    }
    return tokens;
}

Texts NaiveArguments(std::wstring line) {
    const auto isSpace = [](wchar_t c) { return std::iswspace(static_cast<std::wint_t>(c)) != 0; };
    while (!line.empty() && isSpace(line.front())) line.erase(0, 1);
    while (!line.empty() && isSpace(line.back())) line.pop_back();
    Texts tokens = NaiveSplit(line);
    if (!tokens.empty()) tokens.erase(tokens.begin());
    return tokens;
}

// A text without a quote is unchanged when it is quoted.
void CheckRoundTrip(const std::wstring& text) {
    Texts arguments(1);
    for (const wchar_t c : text) {
        if (c == L'"') {
            arguments.emplace_back();
        } else {
            arguments.back() += c;
        }
    }
    std::wstring line = L"\"C:\\some where\\sample.exe\"";
    for (const std::wstring& argument : arguments) {
        // Separated by one space, by two, or by none.
        line += std::wstring(argument.size() % 3, L' ') + L'"' + argument + L'"';
    }
    Require(tarn::ArgumentsOf(line) == arguments);
}

void CheckSplash(const Texts& arguments) {
    bool asked = false;
    for (const std::wstring& argument : arguments)
        asked = asked || argument == L"-nosplash" || argument == L"/nosplash";
    Require(tarn::SuppressesSplash(arguments) == asked);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text = tarn::fuzz::FuzzInput(data, size).TakeText();
    const Texts arguments = tarn::ArgumentsOf(text);
    Require(arguments == NaiveArguments(text));
    Require(tarn::SplitArguments(text) == NaiveSplit(text));
    CheckSplash(arguments);
    CheckRoundTrip(text);
    return 0;
}
