#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace tarn::tools {

/// Where a zip file lies in a longer file, as its end record tells.
struct ZipPlace {
    std::size_t begin =
        0;                // of the zip file: what its offsets count from, unless they are absolute
    std::size_t end = 0;  // behind the end record and its comment
    std::uint64_t entries = 0;
    bool hasAbsoluteOffsets = false;  // they count from the longer file's first byte
};

/// Looks for a zip file's end record the way Java's reader does: the last one whose comment reaches
/// to the end of `content`, or, with other data behind it (a signature), whose directory and first
/// entry are where it says. Knows zip64. Nothing when there is none.
std::optional<ZipPlace> FindZip(std::span<const std::byte> content);

}  // namespace tarn::tools
