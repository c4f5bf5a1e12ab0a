#pragma once

#include <cstdint>
#include <vector>

#include "tools/common/byte_io.h"
#include "tools/image/resource_tree.h"

namespace tarn::tools {

/// One picture of an icon: its bytes as they stand in an .ico file and in an executable alike.
struct IconPicture {
    std::uint32_t width = 0;  // in pixels, at most 256
    std::uint32_t height = 0;
    std::uint8_t colors = 0;  // 0 for 256 and more
    std::uint16_t planes = 1;
    std::uint16_t bits = 32;  // of one pixel
    Bytes content;            // a bitmap without its file header, or a PNG file
};

/// The pictures of an .ico or .png file. A .png becomes pictures of 16, 24, 32, 48, 64 and 256
/// pixels. Throws Failure, without a file's name, for anything else and for what is broken.
std::vector<IconPicture> ReadIcon(ByteSpan file);

/// The pictures of an .ico file.
std::vector<IconPicture> ReadIconFile(ByteSpan file);

/// The pictures made of a PNG file (icon_png.cpp). One that is not square gets transparent
/// borders.
std::vector<IconPicture> IconOfPng(ByteSpan file);

/// Makes these the pictures of the icon that the shell shows: the first icon group's. What the old
/// pictures took goes, unless another group has them too.
void SetIcon(ResourceTree& tree, const std::vector<IconPicture>& pictures);

}  // namespace tarn::tools
