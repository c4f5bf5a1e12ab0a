#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace tarn {

/// A colour as Windows packs it: red in the lowest byte, then green, then blue.
using PackedColor = std::uint32_t;

/// The two colours of a link.
struct LinkColors {
    PackedColor link = 0xFF0000;     ///< RGB(0, 0, 255)
    PackedColor visited = 0x800080;  ///< RGB(128, 0, 128)
};

/// Parses a colour such as "0,0,255": red, green and blue as decimal numbers, packed as they are,
/// only blue masked with 255. A number ends at its first character that is not a digit, and one
/// without a digit is 0. Returns nothing when a comma is missing, or everything after the second.
std::optional<PackedColor> ParseLinkColor(std::wstring_view text);

/// Parses a registry value of type `type` with the bytes `data` (UTF-16). Returns nothing unless it
/// is a text (`REG_SZ` or `REG_EXPAND_SZ`, which is not expanded) that ends with a terminator and
/// parses.
std::optional<PackedColor> LinkColorOfValue(std::uint32_t type, std::span<const std::uint8_t> data);

/// Replaces each of the colours by the one that the user has set for the browser's links. A key
/// that cannot be opened for reading and writing, or a value that is no colour, changes nothing.
void ReadBrowserColors(LinkColors& colors);

}  // namespace tarn
