#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarn::tools {

/// The codes by which Windows Installer recognises a product, in the form "{8-4-4-4-12}". They are
/// derived, so that the same input gives the same bytes.
struct MsiCodes {
    std::string upgrade;  // all versions of the product
    std::string product;  // this version with this content
    std::string package;  // this file
};

/// A GUID derived from a text (version 8 of RFC 9562, by SHA-256), with braces and upper-case
/// digits. `purpose` distinguishes GUIDs of the same text.
std::string GuidOf(std::string_view purpose, std::string_view text);

/// The first three numbers of a version, which are all that Windows Installer compares. Throws
/// Failure for numbers that it does not accept: above 255, 255 and 65535.
std::string MsiVersionOf(const std::array<std::uint16_t, 4>& number);

/// The smallest version after that. Empty if there is none.
std::string MsiVersionAfter(const std::array<std::uint16_t, 4>& number);

}  // namespace tarn::tools
