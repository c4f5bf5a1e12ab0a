#include <algorithm>
#include <optional>

#include "jvm/vm_parameters.h"
#include "tools/check/jvm_options.h"
#include "tools/check/rules.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

constexpr std::uint64_t kKiB = 1024;
constexpr std::uint64_t kMiB = kKiB * kKiB;
constexpr std::uint64_t kGiB = kMiB * kKiB;
constexpr std::size_t kPrefixLength = 4;

// The launcher formats the KiB of a percentage as a signed 32-bit number.
constexpr std::uint64_t kWrapsAtKiB = std::uint64_t{1} << 31U;

// A machine with 8 GiB, and the address space of a 64-bit process on Windows 8.1 and later.
constexpr MemorySizes kUsualMachine{8 * kGiB, (kGiB * kKiB) * 128};

// HotSpot's limits for the heap and for a thread's stack.
constexpr std::uint64_t kSmallestHeap = 2 * kMiB;
constexpr std::uint64_t kSmallestStack = 100 * kKiB;
constexpr std::uint64_t kLargestStack = kGiB;

bool IsSizeOption(std::wstring_view option) {
    const std::wstring_view prefix = option.substr(0, kPrefixLength);
    return prefix == L"-Xms" || prefix == L"-Xmx" || prefix == L"-Xss" || prefix == L"-Xmn";
}

bool IsDigit(wchar_t letter) {
    return letter >= L'0' && letter <= L'9';
}

// A size in bytes as the JVM reads it: digits and at most one unit.
std::optional<std::uint64_t> SizeOf(std::wstring_view text) {
    std::uint64_t size = 0;
    std::size_t at = 0;
    for (; at < text.size() && IsDigit(text[at]); ++at) {
        if (size > UINT64_MAX / 16) return std::nullopt;
        size = size * 10 + static_cast<std::uint64_t>(text[at] - L'0');
    }
    if (at == 0) return std::nullopt;
    if (at == text.size()) return size;
    if (at + 1 != text.size()) return std::nullopt;
    constexpr std::wstring_view kUnits = L"kKmMgGtT";
    const std::size_t unit = kUnits.find(text[at]);
    if (unit == std::wstring_view::npos) return std::nullopt;
    const std::uint64_t factor = std::uint64_t{1} << (10 * (unit / 2 + 1));
    return size > UINT64_MAX / factor ? std::nullopt : std::optional(size * factor);
}

std::string AdviceForSize(std::wstring_view option) {
    const std::string prefix = Utf8Of(option.substr(0, kPrefixLength));
    const std::wstring_view size = option.substr(kPrefixLength);
    if (size.empty()) return "write the size without a space before it: " + prefix + "512m";
    if (size.front() == L'=' || size.front() == L':') {
        return "write " + prefix + Utf8Of(size.substr(1));
    }
    if (size.back() == L'%' && prefix != "-Xmn") {
        return "write " + prefix + Utf8Of(size.substr(0, size.size() - 1)) +
               "p for percent of the machine's memory";
    }
    std::wstring digits;
    for (const wchar_t letter : size) {
        if (!IsDigit(letter)) break;
        digits += letter;
    }
    const std::wstring_view unit = size.substr(digits.size());
    if (!digits.empty() && !unit.empty() &&
        std::wstring_view(L"kKmMgG").find(unit[0]) != unit.npos) {
        return "write " + prefix + Utf8Of(digits) + Utf8Of(unit.substr(0, 1));
    }
    return "write a whole number and k, m or g: " + prefix + "512m";
}

void CheckStack(std::wstring_view option, std::uint64_t size, std::size_t line,
                Findings& findings) {
    if (size != 0 && (size < kSmallestStack || size > kLargestStack)) {
        findings.Error(
            "stack-size", line,
            "the JVM refuses " + Quoted(option) +
                (size < kSmallestStack ? ": the stack is too small" : ": more than 1 GiB"),
            "write a size with its unit, such as -Xss1m");
    } else if (IsDigit(option.back())) {
        findings.Warning("stack-size", line,
                         "the last character of " + Quoted(option) +
                             " is read as its unit: the main thread is created with " +
                             std::to_string(StackSizeOf(option)) + " bytes",
                         "write a size with its unit, such as -Xss1m");
    }
}

void CheckAbsolute(std::wstring_view option, std::size_t line, Findings& findings) {
    const std::optional<std::uint64_t> size = SizeOf(option.substr(kPrefixLength));
    if (!size) {
        findings.Error("size", line, Quoted(option) + " is not a size: the JVM refuses it",
                       AdviceForSize(option));
        return;
    }
    const std::wstring_view prefix = option.substr(0, kPrefixLength);
    if (prefix == L"-Xss") CheckStack(option, *size, line, findings);
    if (prefix == L"-Xmx" && *size < kSmallestHeap) {
        findings.Error("size", line,
                       "the JVM refuses " + Quoted(option) + ": the heap is too small",
                       "write a size with its unit, such as -Xmx512m");
    }
}

void CheckBounds(std::wstring_view option, const ScannedNumbers& scanned, std::size_t line,
                 Findings& findings) {
    const auto number = [&](std::size_t at) {
        return at < scanned.numbers.size() ? scanned.numbers[at] : 0;
    };
    if (scanned.numbers.size() > 3) {
        findings.Warning(
            "percentage", line,
            "only the percentage, minimum and maximum of " + Quoted(option) + " are used");
    }
    if (number(2) != 0 && number(1) > number(2)) {
        findings.Warning(
            "percentage", line,
            "in " + Quoted(option) + " the minimum is above the maximum and takes precedence",
            "write -Xmx<percent>:<at least MiB>:<at most MiB>p");
    }
    if (number(0) == 0 && number(1) == 0) {
        findings.Error("percentage", line, Quoted(option) + " is 0, which the JVM refuses",
                       "write a percent, such as -Xmx25p");
    }
    const bool ofPhysical = option.back() == L'p' || option.back() == L'P';
    if (ofPhysical && number(0) > 100 && number(2) == 0) {
        findings.Warning("percentage", line, Quoted(option) + " exceeds the machine's memory",
                         "write a percent up to 100; for a size, the unit k, m or g");
    }
}

void CheckPercentage(std::wstring_view option, std::size_t line, Findings& findings) {
    const ScannedNumbers scanned = ScanNumbers(option);
    if (scanned.prefixLength != kPrefixLength) {
        findings.Error(
            "percentage", line,
            "the percentage of " + Quoted(option) + " does not follow its first four characters",
            "write it like -Xmx25p or -Xmx25:64:512p");
        return;
    }
    const std::wstring_view inner = option.substr(kPrefixLength, option.size() - kPrefixLength - 1);
    if (std::any_of(inner.begin(), inner.end(),
                    [](wchar_t letter) { return !IsDigit(letter) && letter != L':'; })) {
        findings.Warning(
            "percentage", line,
            "characters other than digits and \":\" in " + Quoted(option) + " are skipped",
            "minimum and maximum are in MiB, without a unit: -Xmx25:64:512p");
    }
    CheckBounds(option, scanned, line, findings);
    const std::uint64_t size = PercentageSize(option, kUsualMachine);
    const bool ofAddresses = option.back() == L't' || option.back() == L'T';
    if (size >= kWrapsAtKiB) {
        findings.Error(
            "percentage-wraps", line,
            Quoted(option) + " is " + std::to_string(size) + " KiB, which wraps at 2^31 KiB to " +
                Utf8Of(ResolvePercentage(option, kUsualMachine)),
            ofAddresses ? "\"t\" is percent of the address space (usually 128 TiB), not a unit: "
                          "give a maximum, such as -Xmx1:64:4096t, or write p"
                        : "minimum and maximum are in MiB: make them smaller");
    } else if (ofAddresses && scanned.numbers.size() < 3) {
        findings.Warning(
            "percentage", line,
            "\"t\" in " + Quoted(option) +
                " is percent of the address space, usually 128 TiB, not a unit",
            "give a maximum, such as -Xmx1:64:4096t, or write p for percent of the memory");
    }
}

}  // namespace

void CheckMemorySizes(const CheckedSettings& settings, Findings& findings) {
    const WrittenOptions written = JvmOptionsOf(settings);
    std::optional<std::uint64_t> initial, maximum;
    for (const std::wstring& option : written.options) {
        if (!IsSizeOption(option) || HasVariable(option)) continue;
        if (HasPercentageForm(option)) {
            CheckPercentage(option, written.line, findings);
        } else {
            CheckAbsolute(option, written.line, findings);
        }
        const bool isAbsolute = !HasPercentageForm(option);
        // The last option of a kind takes effect.
        if (option.starts_with(L"-Xms"))
            initial = isAbsolute ? SizeOf(option.substr(kPrefixLength)) : std::nullopt;
        if (option.starts_with(L"-Xmx"))
            maximum = isAbsolute ? SizeOf(option.substr(kPrefixLength)) : std::nullopt;
    }
    if (initial && maximum && *initial > *maximum) {
        findings.Error(
            "heap-order", written.line,
            "the JVM refuses an initial heap (-Xms) that is larger than the maximum (-Xmx)",
            "make -Xms smaller, or remove it");
    }
}

}  // namespace tarn::tools
