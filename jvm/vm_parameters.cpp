#include "jvm/vm_parameters.h"

#include <algorithm>
#include <limits>

#include "base/text.h"

namespace tarn {
namespace {

constexpr auto npos = std::wstring_view::npos;
constexpr std::size_t kPrefixLength = 4;  // of "-Xms", "-Xmx" and "-Xss"
constexpr std::uint64_t kKiB = 1024;

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

// The conversion of a value out of range is undefined, and a setting can contain any percentage.
std::uint64_t Truncate(double value) {
    constexpr double kLimit = 18446744073709551616.0;  // 2^64
    return value < kLimit ? static_cast<std::uint64_t>(value)
                          : std::numeric_limits<std::uint64_t>::max();
}

std::uint64_t NumberAt(const std::vector<std::uint64_t>& numbers, std::size_t index) {
    return index < numbers.size() ? numbers[index] : 0;
}

}  // namespace

std::vector<std::wstring> SplitVmParameters(std::wstring_view text) {
    std::vector<std::wstring> tokens;
    std::size_t at = 0;
    while ((at = text.find_first_not_of(L' ', at)) != npos) {
        bool quoted = false;
        std::size_t end = at;
        for (; end < text.size() && (quoted || text[end] != L' '); ++end) {
            if (text[end] == L'"') quoted = !quoted;
        }
        tokens.emplace_back(text.substr(at, end - at));
        at = end;
    }
    return tokens;
}

std::wstring RemoveQuotes(std::wstring option) {
    std::size_t from = 0;
    for (;;) {
        const std::size_t open = option.find(L'"', from);
        if (open == npos) return option;
        std::size_t close = option.find(L'"', open + 1);
        if (close == npos) return option;
        if (close + 1 < option.size() && option[close + 1] == L'"') ++close;
        option.erase(close, 1);
        option.erase(open, 1);
        from = close - 1;
    }
}

ScannedNumbers ScanNumbers(std::wstring_view text) {
    ScannedNumbers result;
    const auto first =
        std::find_if(text.begin(), text.end(), [](wchar_t c) { return IsDigit(c) || c == L':'; });
    result.prefixLength = static_cast<std::size_t>(first - text.begin());
    if (first == text.end()) return result;
    result.numbers.push_back(0);
    // The last character is the unit: docs/developer/compatibility.md.
    for (auto at = first; at != text.end() - 1; ++at) {
        if (*at == L':') {
            result.numbers.push_back(0);
        } else if (IsDigit(*at)) {
            std::uint64_t& number = result.numbers.back();
            number = number * 10 + static_cast<std::uint64_t>(*at - L'0');
        }
    }
    return result;
}

bool HasPercentageForm(std::wstring_view option) {
    const std::wstring_view prefix = option.substr(0, kPrefixLength);
    if (prefix != L"-Xms" && prefix != L"-Xmx" && prefix != L"-Xss") return false;
    return std::wstring_view(L"PpTt").find(option.back()) != npos;
}

std::uint64_t PercentageSize(std::wstring_view option, const MemorySizes& memory) {
    const ScannedNumbers scanned = ScanNumbers(option);
    const std::uint64_t percent = NumberAt(scanned.numbers, 0);
    const std::uint64_t minimum = NumberAt(scanned.numbers, 1);
    const std::uint64_t maximum = NumberAt(scanned.numbers, 2);
    const bool ofPhysical = option.back() == L'P' || option.back() == L'p';
    const std::uint64_t baseKiB =
        (ofPhysical ? memory.totalPhysical : memory.availableVirtual) / kKiB;
    const double fraction = static_cast<double>(percent) / 100.0;

    std::uint64_t size = Truncate(static_cast<double>(baseKiB) * fraction);
    if (maximum != 0) size = std::min(size, maximum * kKiB);
    return std::max(minimum * kKiB, size);
}

std::wstring ResolvePercentage(std::wstring_view option, const MemorySizes& memory) {
    // Wraps on purpose: docs/developer/compatibility.md.
    std::wstring resolved(option.substr(0, ScanNumbers(option).prefixLength));
    resolved += DecimalText(static_cast<std::int32_t>(PercentageSize(option, memory)));
    resolved += L'K';
    return resolved;
}

std::uint64_t StackSizeOf(std::wstring_view option) {
    const std::wstring_view size = option.substr(kPrefixLength);
    const ScannedNumbers scanned = ScanNumbers(size);
    if (scanned.prefixLength != 0 || scanned.numbers.size() != 1) return 0;
    switch (size.back()) {
        case L'G':
        case L'g':
            return scanned.numbers[0] * (kKiB * kKiB * kKiB);
        case L'K':
        case L'k':
            return scanned.numbers[0] * kKiB;
        case L'M':
        case L'm':
            return scanned.numbers[0] * (kKiB * kKiB);
        default:
            return scanned.numbers[0];
    }
}

}  // namespace tarn
