#include "tools/check/vm_flag_number.h"

#include <cstdlib>
#include <string>

namespace tarn::tools {
namespace {

constexpr double kTwoTo64 = 18446744073709551616.0;
constexpr std::string_view kDigits = "0123456789";

// Removes the unit at the end; its factor.
double TakeUnit(std::string_view& text) {
    constexpr std::string_view kUnits = "kKmMgGtT";
    const std::size_t unit = text.empty() ? text.npos : kUnits.find(text.back());
    if (unit == kUnits.npos) return 1;
    text.remove_suffix(1);
    return static_cast<double>(std::uint64_t{1} << (10 * (unit / 2 + 1)));
}

bool TakeSign(std::string_view& text) {
    if (!text.starts_with('-')) return false;
    text.remove_prefix(1);
    return true;
}

std::optional<double> WholeNumberOf(std::string_view text) {
    const bool isNegative = TakeSign(text);
    const double factor = TakeUnit(text);
    const bool isHexadecimal = text.starts_with("0x") || text.starts_with("0X");
    if (isHexadecimal) text.remove_prefix(2);
    const std::string_view digits = isHexadecimal ? "0123456789abcdefABCDEF" : kDigits;
    if (text.empty() || text.find_first_not_of(digits) != text.npos) return std::nullopt;
    const std::string number = (isHexadecimal ? "0x" : "") + std::string(text);
    const double value = std::strtod(number.c_str(), nullptr) * factor;
    if (value >= kTwoTo64) return std::nullopt;
    return isNegative ? -value : value;
}

// Whether the text has the form that every version accepts: digits before and after the point.
bool HasOldForm(std::string_view text) {
    TakeSign(text);
    const std::size_t point = text.find_first_not_of(kDigits);
    return point != 0 && point != text.npos && text[point] == '.' && point + 1 < text.size() &&
           kDigits.find(text[point + 1]) != kDigits.npos;
}

std::optional<VmFlagNumber> DecimalOf(std::string_view text) {
    if (text.empty() || text.find_first_not_of("-+.eE0123456789") != text.npos) return std::nullopt;
    const std::string number(text);
    char* end = nullptr;
    const double value = std::strtod(number.c_str(), &end);
    if (*end != '\0') return std::nullopt;
    return VmFlagNumber{value, !HasOldForm(text)};
}

}  // namespace

std::optional<VmFlagNumber> ParseVmFlagNumber(FlagKind kind, std::string_view text) {
    if (const std::optional<double> number = WholeNumberOf(text)) return VmFlagNumber{*number};
    return kind == FlagKind::Decimal ? DecimalOf(text) : std::nullopt;
}

bool IsInRange(const VmFlag& flag, double value) {
    const auto bound = [](std::string_view text) {
        return std::strtod(std::string(text).c_str(), nullptr);
    };
    return (flag.lowest.empty() || value >= bound(flag.lowest)) &&
           (flag.highest.empty() || value <= bound(flag.highest));
}

}  // namespace tarn::tools
