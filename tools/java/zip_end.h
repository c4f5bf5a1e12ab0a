#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "tools/common/whole_file.h"

namespace tarn::tools {

/// The location of a zip file inside a longer file, according to its end record.
struct ZipPlace {
    std::size_t begin = 0;  // start of the zip file; offsets are relative to it unless absolute
    std::size_t end = 0;    // after the end record and its comment
    std::uint64_t entries = 0;
    std::uint64_t directorySize = 0;
    std::size_t directoryEnd = 0;  // end of the directory
    std::size_t endRecord = 0;     // start of the end record, later than `directoryEnd` with zip64
    bool hasAbsoluteOffsets = false;  // relative to the start of the longer file
};

/// Finds the end record of a zip file as Java does: the last one whose comment extends to the end
/// of `content`, or, when other data such as a signature follows, whose directory and first entry
/// are at the recorded offsets. Supports zip64. Nothing when there is none.
std::optional<ZipPlace> FindZip(std::span<const std::byte> content);

/// A copy of a zip file without its zip64 records, which Java does not find when the file is
/// embedded and followed by a signature. Below 4 GiB they only hold the number of entries, and Java
/// counts these itself. Throws Failure for anything but a zip file.
Bytes WithoutZip64Records(std::span<const std::byte> zip);

}  // namespace tarn::tools
