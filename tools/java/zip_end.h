#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "tools/common/whole_file.h"

namespace tarn::tools {

/// Where a zip file lies in a longer file, as its end record tells.
struct ZipPlace {
    std::size_t begin =
        0;                // of the zip file: what its offsets count from, unless they are absolute
    std::size_t end = 0;  // behind the end record and its comment
    std::uint64_t entries = 0;
    std::uint64_t directorySize = 0;
    std::size_t directoryEnd = 0;     // where the directory ends
    std::size_t endRecord = 0;        // and where the end record begins: farther on with zip64
    bool hasAbsoluteOffsets = false;  // they count from the longer file's first byte
};

/// Looks for a zip file's end record the way Java's reader does: the last one whose comment reaches
/// to the end of `content`, or, with other data behind it (a signature), whose directory and first
/// entry are where it says. Knows zip64. Nothing when there is none.
std::optional<ZipPlace> FindZip(std::span<const std::byte> content);

/// A zip file as it can lie behind other data with a signature behind it: Java's reader then finds
/// no zip64 records. They only stand for numbers that are too large for the end record; in a file
/// below 4 GiB that is the number of entries alone, and without it Java counts them. Throws Failure
/// for what is no zip file.
Bytes WithoutZip64Records(std::span<const std::byte> zip);

}  // namespace tarn::tools
