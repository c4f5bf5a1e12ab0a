#pragma once

#include <cstdint>
#include <vector>

#include "tools/common/byte_io.h"
#include "tools/image/resource_tree.h"

namespace tarn::tools {

/// One image of an icon, in the format that .ico files and executables share.
struct IconPicture {
    std::uint32_t width = 0;  // in pixels, at most 256
    std::uint32_t height = 0;
    std::uint8_t colors = 0;  // 0 for 256 or more
    std::uint16_t planes = 1;
    std::uint16_t bits = 32;  // of one pixel
    Bytes content;            // a DIB without file header, or a PNG file
};

/// The largest icon file in bytes, about ten times that of an uncompressed .ico with all sizes.
inline constexpr std::uintmax_t kLargestIconFile = 16U << 20U;

/// The images of an .ico or .png file. A .png is resized to 16, 24, 32, 48, 64 and 256 pixels.
/// Throws Failure, without the file's name, for any other format and for corrupt files.
std::vector<IconPicture> ReadIcon(ByteSpan file);

/// The images of an .ico file, which must not overlap.
std::vector<IconPicture> ReadIconFile(ByteSpan file);

/// The images resized from a PNG file (icon_png.cpp), with transparent borders when it is not
/// square.
std::vector<IconPicture> IconOfPng(ByteSpan file);

/// Replaces the images of the first icon group, which is the icon that the shell shows. The old
/// images are removed unless another group refers to them.
void SetIcon(ResourceTree& tree, const std::vector<IconPicture>& pictures);

}  // namespace tarn::tools
