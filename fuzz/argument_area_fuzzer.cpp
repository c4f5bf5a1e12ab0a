// The argument area of the shared block is written by another, untrusted process.

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "fuzz/fuzz_input.h"
#include "instance/shared_block.h"

namespace {

using tarn::fuzz::Require;
using Area = std::array<char16_t, tarn::kArgumentUnits>;

// A model, unit by unit: a zero ends an argument, and a zero right after a zero ends the list. The
// list is empty when that happens before any other unit.
std::vector<std::wstring> NaiveDecode(const Area& area) {
    std::vector<std::wstring> arguments;
    std::wstring current;
    bool afterZero = false;
    bool anyText = false;
    for (const char16_t unit : area) {
        if (unit != 0) {
            current.push_back(static_cast<wchar_t>(unit));
            afterZero = false;
            anyText = true;
            continue;
        }
        if (afterZero) return anyText ? arguments : std::vector<std::wstring>();
        arguments.push_back(current);
        current.clear();
        afterZero = true;
    }
    if (!current.empty()) arguments.push_back(current);
    return arguments;
}

// The arguments when every zero ends one, including empty ones.
std::vector<std::wstring> ArgumentsOf(const std::vector<char16_t>& units) {
    std::vector<std::wstring> arguments(1);
    for (const char16_t unit : units) {
        if (unit == 0) {
            arguments.emplace_back();
        } else {
            arguments.back().push_back(static_cast<wchar_t>(unit));
        }
    }
    return arguments;
}

void CheckDecode(const std::vector<char16_t>& units) {
    // A heap block of its own, so that a read beyond the area is detected.
    const auto area = std::make_unique<Area>();
    area->fill(u'\0');
    std::copy_n(units.begin(), std::min(units.size(), area->size()), area->begin());
    Require(tarn::DecodeArguments(*area) == NaiveDecode(*area));
}

void CheckRoundTrip(const std::vector<char16_t>& units) {
    const std::vector<std::wstring> arguments = ArgumentsOf(units);
    std::size_t bytes = 2;
    for (const std::wstring& argument : arguments) bytes += 2 * argument.size() + 2;

    const auto area = std::make_unique<Area>();
    area->fill(u'\xFFFF');
    const Area before = *area;
    if (!tarn::EncodeArguments(arguments, *area)) {
        Require(bytes > 1040 && *area == before);
        return;
    }
    Require(bytes <= 1040);
    // Up to the first empty argument that is not the only one at the start.
    std::vector<std::wstring> received;
    for (const std::wstring& argument : arguments) {
        if (argument.empty() && !received.empty()) break;
        received.push_back(argument);
    }
    if (received.size() == 1 && received.front().empty()) received.clear();
    Require(tarn::DecodeArguments(*area) == received);
    Require(area->back() == u'\0');
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<char16_t> units(size / sizeof(char16_t));
    if (!units.empty()) std::memcpy(units.data(), data, units.size() * sizeof(char16_t));
    CheckDecode(units);
    CheckRoundTrip(units);
    return 0;
}
