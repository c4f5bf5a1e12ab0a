#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace tarn::tools {

/// The encoding of a settings file. Windows reads ASCII and UTF-16 with a byte-order mark as
/// intended, and everything else in the system's 8-bit code page.
enum class IniEncoding {
    Ascii,
    Utf8,
    Utf8WithMark,
    CodePage,
    Utf16,
    Utf16WithoutMark,
    Utf16BigEndian,
    Utf32,
};

struct DecodedIni {
    IniEncoding encoding = IniEncoding::Ascii;
    /// The text as its author intended it, without the byte-order mark.
    std::wstring text;
    /// Whether a UTF-16 file ends with half a code unit.
    bool hasOddByte = false;
};

/// Recognises the encoding and decodes the file. Invalid sequences become U+FFFD. 8-bit text is
/// decoded as Windows-1252, because the user's code page is unknown here.
DecodedIni DecodeIni(std::span<const std::byte> bytes);

}  // namespace tarn::tools
