// Time-stamp pictures in the names of output files.

#include <algorithm>

#include "fuzz/fuzz_input.h"
#include "jvm/time_stamp.h"

namespace {

using tarn::fuzz::Require;

void CheckSplit(const std::wstring& name) {
    const auto parts = tarn::SplitTimeStamp(name);
    const auto marks = std::count(name.begin(), name.end(), L'%');
    Require(parts.has_value() == (marks > 0));
    if (!parts) return;
    const std::wstring before(parts->before);
    const std::wstring picture(parts->picture);
    const std::wstring after(parts->after);
    Require(before.find(L'%') == std::wstring::npos && after.find(L'%') == std::wstring::npos);
    // The parts, joined, are the name.
    Require(name == (marks == 1 ? before + L'%' + after : before + L'%' + picture + L'%' + after));
    Require(marks > 1 || picture.empty());
}

void CheckMilliseconds(const std::wstring& picture, unsigned milliseconds) {
    std::wstring expected = picture;
    const std::wstring digits = std::to_wstring(milliseconds);
    for (std::size_t at = 0; (at = expected.find(L'L', at)) != std::wstring::npos;
         at += digits.size()) {
        expected.replace(at, 1, digits);
    }
    Require(tarn::WithMilliseconds(picture, milliseconds) == expected);
}

// A model of a formatting call, in which every field becomes one "#" for each letter.
std::wstring NaiveFormat(const std::wstring& picture, const std::wstring& letters) {
    std::wstring text;
    bool quoted = false;
    for (std::size_t i = 0; i < picture.size(); ++i) {
        const bool pair = picture.compare(i, 2, L"''") == 0;
        if (quoted && pair) {
            text += L'\'';
            ++i;
        } else if (picture[i] == L'\'') {
            quoted = !quoted;
        } else {
            const bool field = !quoted && letters.find(picture[i]) != std::wstring::npos;
            text += field ? L'#' : L'.';
        }
    }
    return text;
}

void CheckFields(const std::wstring& picture, const std::wstring& letters) {
    std::wstring_view rest = picture;
    std::size_t length = 0;
    for (;;) {
        const std::size_t before = rest.size();
        const std::wstring field(tarn::ConsumeField(rest, letters, length));
        if (field.empty()) break;
        // A single letter, repeated as often as possible.
        Require(field == std::wstring(field.size(), field[0]));
        Require(letters.find(field[0]) != std::wstring::npos);
        Require(rest.empty() || rest[0] != field[0]);
        Require(rest.size() < before);
        length += field.size();
    }
    Require(rest.empty());
    Require(length == NaiveFormat(picture, letters).size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tarn::fuzz::FuzzInput input(data, size);
    const unsigned milliseconds = input.TakeNumber<std::uint16_t>() % 1000u;
    const std::wstring text = input.TakeText();
    CheckSplit(text);
    CheckMilliseconds(text, milliseconds);
    CheckFields(text, L"hHmst");
    CheckFields(text, L"dMyg");
    return 0;
}
