// Versions come from the registry, from settings files and from folder names.

#include <optional>
#include <tuple>
#include <vector>

#include "fuzz/fuzz_input.h"
#include "runtime/runtime_version.h"

namespace {

using tarn::RuntimeVersion;
using tarn::fuzz::Require;

std::vector<std::wstring> DigitGroups(const std::wstring& text) {
    std::vector<std::wstring> groups;
    bool inGroup = false;
    for (const wchar_t c : text) {
        const bool isDigit = c >= L'0' && c <= L'9';
        if (isDigit && !inGroup) groups.emplace_back();
        if (isDigit) groups.back() += c;
        inGroup = isDigit;
    }
    return groups;
}

// A number in 32 bits; none when it exceeds 214748364 and another digit follows.
std::optional<std::int32_t> NaiveNumber(const std::wstring& digits) {
    constexpr std::int64_t kRange = std::int64_t{1} << 32;
    std::int64_t value = 0;
    for (const wchar_t digit : digits) {
        if (value > 214748364) return std::nullopt;
        value = value * 10 + (digit - L'0');
        while (value >= kRange / 2) value -= kRange;
        while (value < -kRange / 2) value += kRange;
    }
    return static_cast<std::int32_t>(value);
}

std::optional<RuntimeVersion> NaiveParse(const std::wstring& text, std::int32_t fill) {
    const std::vector<std::wstring> groups = DigitGroups(text);
    if (groups.empty()) return std::nullopt;
    RuntimeVersion version{{fill, fill, fill, fill}, 0};
    for (std::size_t i = 0; i < groups.size() && i < 4; ++i) {
        const auto number = NaiveNumber(groups[i]);
        if (!number) return std::nullopt;
        version.parts[i] = *number;
    }
    version.count = static_cast<std::int32_t>(groups.size() < 5 ? groups.size() : 5);
    return version;
}

bool SaysSomething(std::int32_t part) {
    return part != 0 && part != 65535;
}

std::wstring NaiveFormat(const RuntimeVersion& version) {
    std::size_t last = 4;
    while (last > 0 && !SaysSomething(version.parts[last - 1])) --last;
    if (last == 0) return L"0.0.0.0";
    std::wstring text;
    for (std::size_t i = 0; i < (last < 2 ? 2 : last); ++i)
        text += L'.' + std::to_wstring(version.parts[i]);
    return text.substr(1);
}

bool NaiveMatch(const RuntimeVersion& preferred, const RuntimeVersion& candidate) {
    if (preferred.parts == candidate.parts) return true;
    bool significant = false;
    for (std::size_t i = 4; i-- > 0;) {
        significant = significant || preferred.parts[i] != 0;
        if (significant && preferred.parts[i] != candidate.parts[i]) return false;
    }
    return true;
}

int NaiveCompare(const RuntimeVersion& a, const RuntimeVersion& b) {
    const auto key = [](const RuntimeVersion& v) {
        return std::tuple(v.parts[0], v.parts[1], v.parts[2], v.parts[3]);
    };
    if (key(a) < key(b)) return -1;
    return key(b) < key(a) ? 1 : 0;
}

bool IsBlankNaively(const RuntimeVersion& v) {
    return v.parts == std::array{0, 0, 0, 0} || v.parts == std::array{65535, 65535, 65535, 65535};
}

RuntimeVersion CheckParse(const std::wstring& text, std::int32_t fill) {
    RuntimeVersion version{{1, 2, 3, 4}, 5};
    const auto expected = NaiveParse(text, fill);
    Require(tarn::ParseVersion(text, fill, version) == expected.has_value());
    const RuntimeVersion wanted = expected.value_or(RuntimeVersion{});
    Require(version.parts == wanted.parts && version.count == wanted.count);
    return version;
}

// A formatted version is parsed as the same version, except for the omitted tail.
void CheckFormat(const RuntimeVersion& version) {
    const std::wstring text = tarn::FormatVersion(version);
    Require(text == NaiveFormat(version));
    for (const std::int32_t part : version.parts)
        if (part < 0) return;
    RuntimeVersion read;
    Require(tarn::ParseVersion(text, 0, read));
    bool tail = true;
    for (std::size_t i = 4; i-- > 0;) {
        tail = tail && !SaysSomething(version.parts[i]);
        Require(read.parts[i] == version.parts[i] || (tail && read.parts[i] == 0));
    }
}

void CheckPhrase(const RuntimeVersion& minimum, const RuntimeVersion& maximum) {
    const tarn::VersionPhrase phrase = tarn::ChooseVersionPhrase(minimum, maximum);
    const std::wstring low = NaiveFormat(minimum);
    const std::wstring high = NaiveFormat(maximum);
    const auto is = [&phrase](unsigned id, const std::wstring& first, const std::wstring& second) {
        return phrase.textId == id && phrase.first == first && phrase.second == second;
    };
    if (IsBlankNaively(minimum)) {
        Require(IsBlankNaively(maximum) ? is(217, L"", L"") : is(218, high, L""));
    } else if (IsBlankNaively(maximum)) {
        Require(is(219, low, L""));
    } else {
        Require(minimum.parts == maximum.parts ? is(220, low, L"") : is(221, low, high));
    }
}

void CheckBounds(const std::wstring& text) {
    const bool any = text == L"any";
    const RuntimeVersion low = tarn::MinimumBound(text);
    const RuntimeVersion high = tarn::MaximumBound(text);
    const auto wantedLow =
        any ? RuntimeVersion{{0, 0, 0, 0}, 4} : NaiveParse(text, 0).value_or(RuntimeVersion{});
    const auto wantedHigh = any ? RuntimeVersion{{65535, 65535, 65535, 65535}, 4}
                                : NaiveParse(text, 65535).value_or(RuntimeVersion{});
    Require(low.parts == wantedLow.parts && low.count == wantedLow.count);
    Require(high.parts == wantedHigh.parts && high.count == wantedHigh.count);
}

}  // namespace

// Two texts separated by a line feed.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::wstring rest = tarn::fuzz::FuzzInput(data, size).TakeText();
    std::vector<std::wstring> texts;
    std::vector<RuntimeVersion> versions;
    for (int i = 0; i < 2; ++i) {
        const std::size_t end = rest.find(L'\n');
        texts.push_back(rest.substr(0, end));
        rest = end == std::wstring::npos ? L"" : rest.substr(end + 1);
        CheckParse(texts.back(), 65535);
        versions.push_back(CheckParse(texts.back(), 0));
        CheckFormat(versions.back());
        CheckBounds(texts.back());
    }
    for (std::size_t a = 0; a < 2; ++a) {
        for (std::size_t b = 0; b < 2; ++b) {
            Require(tarn::CompareVersions(versions[a], versions[b]) ==
                    NaiveCompare(versions[a], versions[b]));
            Require(tarn::MatchesPreferred(texts[a], versions[b]) ==
                    NaiveMatch(versions[a], versions[b]));
        }
    }
    CheckPhrase(tarn::MinimumBound(texts[0]), tarn::MaximumBound(texts[1]));
    return 0;
}
