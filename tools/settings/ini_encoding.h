#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace tarn::tools {

/// How the bytes of a settings file are meant. Windows reads two of these as they are meant: plain
/// ASCII, and UTF-16 with a mark; everything else goes through the system's code page.
enum class IniEncoding {
    kAscii,
    kUtf8,
    kUtf8WithMark,
    kCodePage,
    kUtf16,
    kUtf16WithoutMark,
    kUtf16BigEndian,
    kUtf32,
};

struct DecodedIni {
    IniEncoding encoding = IniEncoding::kAscii;
    /// The text as its author meant it, without a byte-order mark.
    std::wstring text;
    /// A UTF-16 file ends with half a character.
    bool hasOddByte = false;
};

DecodedIni DecodeIni(std::span<const std::byte> bytes);

}  // namespace tarn::tools
