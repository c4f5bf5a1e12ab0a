#include "runtime/runtime_version.h"

#include <algorithm>
#include <cstddef>

#include "base/text.h"
#include "resources/ids.h"

namespace tarn {

namespace {

/// The largest number that accepts another digit.
constexpr std::int32_t kLargestToExtend = 214748364;

bool IsDigit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}

/// Returns the index of the first digit at or after `from`; the text's size without one.
std::size_t NextDigit(std::wstring_view text, std::size_t from) {
    while (from < text.size() && !IsDigit(text[from])) ++from;
    return from;
}

/// Reads the digits at `position` and moves it past them. Returns false when the number was too
/// large before its last digit; the last digit may wrap.
bool ReadNumber(std::wstring_view text, std::size_t& position, std::int32_t& number) {
    std::uint32_t value = 0;
    for (; position < text.size() && IsDigit(text[position]); ++position) {
        // Signed like the parts, so a number that has wrapped to a negative one accepts more
        // digits.
        if (static_cast<std::int32_t>(value) > kLargestToExtend) return false;
        value = value * 10 + static_cast<std::uint32_t>(text[position] - L'0');
    }
    number = static_cast<std::int32_t>(value);
    return true;
}

}  // namespace

bool ParseVersion(std::wstring_view text, std::int32_t fill, RuntimeVersion& version) {
    version = RuntimeVersion{};
    std::size_t position = NextDigit(text, 0);
    if (position == text.size()) return false;

    RuntimeVersion read;
    read.parts.fill(fill);
    const auto stored = static_cast<std::int32_t>(read.parts.size());
    while (position < text.size()) {
        if (read.count == stored) {
            // Further groups count as one.
            ++read.count;
            break;
        }
        if (!ReadNumber(text, position, read.parts[static_cast<std::size_t>(read.count)])) {
            return false;
        }
        ++read.count;
        position = NextDigit(text, position);
    }
    version = read;
    return true;
}

std::wstring FormatVersion(const RuntimeVersion& version) {
    std::size_t written = version.parts.size();
    while (written > 0 &&
           (version.parts[written - 1] == 0 || version.parts[written - 1] == kOpenPart)) {
        --written;
    }
    if (written == 0) return L"0.0.0.0";
    // At least "major.minor".
    written = std::max<std::size_t>(written, 2);
    std::wstring text;
    for (std::size_t part = 0; part < written; ++part) {
        if (part != 0) text += L'.';
        text += DecimalText(version.parts[part]);
    }
    return text;
}

int CompareVersions(const RuntimeVersion& a, const RuntimeVersion& b) {
    if (a.parts == b.parts) return 0;
    return a.parts < b.parts ? -1 : 1;
}

bool MatchesPreferred(std::wstring_view preferred, const RuntimeVersion& candidate) {
    RuntimeVersion version;
    // A text without digits is all zeros and matches every version.
    ParseVersion(preferred, 0, version);
    std::size_t compared = version.parts.size();
    while (compared > 0 && version.parts[compared - 1] == 0) --compared;
    return std::equal(version.parts.begin(),
                      version.parts.begin() + static_cast<std::ptrdiff_t>(compared),
                      candidate.parts.begin());
}

namespace {

RuntimeVersion Bound(std::wstring_view text, std::int32_t open) {
    RuntimeVersion bound;
    if (text == L"any") {
        bound.parts.fill(open);
        bound.count = static_cast<std::int32_t>(bound.parts.size());
    } else {
        ParseVersion(text, open, bound);
    }
    return bound;
}

}  // namespace

std::string_view ReleaseValueIn(std::string_view releaseFile, std::string_view key) {
    for (;;) {
        const std::string_view line = releaseFile.substr(0, releaseFile.find('\n'));
        if (line.starts_with(key)) return line.substr(key.size());
        if (line.size() == releaseFile.size()) return {};
        releaseFile.remove_prefix(line.size() + 1);
    }
}

std::string_view JavaVersionIn(std::string_view releaseFile) {
    return ReleaseValueIn(releaseFile, "JAVA_VERSION=");
}

RuntimeVersion MinimumBound(std::wstring_view text) {
    return Bound(text, 0);
}

RuntimeVersion MaximumBound(std::wstring_view text) {
    return Bound(text, kOpenPart);
}

bool IsBlank(const RuntimeVersion& version) {
    const auto& [major, minor, micro, update] = version.parts;
    return (major == 0 || major == kOpenPart) && minor == major && micro == major &&
           update == major;
}

VersionPhrase ChooseVersionPhrase(const RuntimeVersion& minimum, const RuntimeVersion& maximum) {
    if (IsBlank(minimum) && IsBlank(maximum)) return {IDS_LATEST_VERSION, L"", L""};
    if (IsBlank(minimum)) return {IDS_MAXIMUM_VERSION, FormatVersion(maximum), L""};
    if (IsBlank(maximum)) return {IDS_MINIMUM_VERSION, FormatVersion(minimum), L""};
    if (CompareVersions(minimum, maximum) == 0) {
        return {IDS_EXACT_VERSION, FormatVersion(minimum), L""};
    }
    return {IDS_VERSION_RANGE, FormatVersion(minimum), FormatVersion(maximum)};
}

}  // namespace tarn
