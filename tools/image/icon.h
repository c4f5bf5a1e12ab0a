#pragma once

#include <array>
#include <cstdint>
#include <span>
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

/// The sizes in pixels of the images that are made of a .png file.
inline constexpr std::array<std::uint32_t, 6> kIconSizes = {16, 24, 32, 48, 64, 256};

/// The images of an .ico or .png file. A .png is resized to `kIconSizes`.
/// Throws Failure, without the file's name, for any other format and for corrupt files.
std::vector<IconPicture> ReadIcon(ByteSpan file);

/// The images of an .ico file, which must not overlap.
std::vector<IconPicture> ReadIconFile(ByteSpan file);

/// The images resized from a PNG file to these sizes (icon_png.cpp), with transparent borders when
/// it is not square.
std::vector<IconPicture> IconOfPng(ByteSpan file,
                                   std::span<const std::uint32_t> sizes = kIconSizes);

/// Replaces the images of the first icon group, which is the icon that the shell shows. The old
/// images are removed unless another group refers to them.
void SetIcon(ResourceTree& tree, const std::vector<IconPicture>& pictures);

}  // namespace tarn::tools
