#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace tarn {

/// A colour as Windows packs it: red in the lowest byte, then green, then blue.
using PackedColor = std::uint32_t;

/// The colour that a text such as "0,0,255" names: red, green and blue as decimal numbers, packed
/// as they are, only blue cut to 8 bits. A number is read up to its first character that is no
/// digit, and one without any digit is 0. Nothing when a comma or everything behind the second one
/// is missing.
std::optional<PackedColor> ParseLinkColor(std::wstring_view text);

/// The same for a registry value as it was read: `type` is the value's type, `data` its bytes
/// (UTF-16). Nothing unless it is a text (`REG_SZ` or `REG_EXPAND_SZ`, which is not expanded) that
/// ends with a terminator and parses.
std::optional<PackedColor> LinkColorOfValue(std::uint32_t type, std::span<const std::uint8_t> data);

}  // namespace tarn
