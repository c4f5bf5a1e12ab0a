// Converts a PNG file to the images of an icon.
#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "tools/common/failure.h"
#include "tools/image/icon.h"

namespace tarn::tools {
namespace {

// The decoder's largest block of memory, in bytes. A picture of 4096 x 4096 pixels takes 64 MiB;
// without a limit a small file can unpack to any size.
constexpr std::size_t kLargestBlock = 80U << 20U;

void* Allocate(std::size_t size) {
    return size > kLargestBlock ? nullptr : std::malloc(size);
}

void* Reallocate(void* block, std::size_t size) {
    return size > kLargestBlock ? nullptr : std::realloc(block, size);
}

}  // namespace
}  // namespace tarn::tools

// Single-file libraries: their code is compiled here only.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#pragma GCC diagnostic ignored "-Wunused-but-set-variable"
#define STBI_ONLY_PNG
#define STBI_NO_STDIO
#define STBI_MAX_DIMENSIONS 4096
#define STBI_MALLOC(size) tarn::tools::Allocate(size)
#define STBI_REALLOC(block, size) tarn::tools::Reallocate(block, size)
#define STBI_FREE(block) std::free(block)
#define STB_IMAGE_STATIC
#define STB_IMAGE_IMPLEMENTATION
#include <stb/stb_image.h>
#define STB_IMAGE_RESIZE_STATIC
#define STB_IMAGE_RESIZE_IMPLEMENTATION
#include <stb/stb_image_resize.h>
#define STBI_WRITE_NO_STDIO
#define STB_IMAGE_WRITE_STATIC
#define STB_IMAGE_WRITE_IMPLEMENTATION
#include <stb/stb_image_write.h>
#pragma GCC diagnostic pop

namespace tarn::tools {
namespace {

constexpr int kChannels = 4;
// Windows reads this size as PNG, which is much smaller than a DIB.
constexpr std::uint32_t kPngSize = 256;
constexpr std::uint32_t kBitmapHeaderSize = 40;

// A square image: red, green, blue and alpha of each pixel, from the top.
struct Picture {
    int size = 0;
    std::vector<unsigned char> pixels;

    const unsigned char* Pixel(int x, int y) const {
        return &pixels[(static_cast<std::size_t>(y) * static_cast<std::size_t>(size) +
                        static_cast<std::size_t>(x)) *
                       kChannels];
    }
};

Picture EmptyPicture(int size) {
    return {size, std::vector<unsigned char>(std::size_t{kChannels} * static_cast<unsigned>(size) *
                                             static_cast<unsigned>(size))};
}

Picture DecodeSquare(ByteSpan file) {
    int width = 0;
    int height = 0;
    int channels = 0;
    const auto* const bytes = reinterpret_cast<const stbi_uc*>(file.data());
    const std::unique_ptr<stbi_uc, decltype(&stbi_image_free)> decoded(
        stbi_load_from_memory(bytes, static_cast<int>(std::min<std::size_t>(file.size(), INT_MAX)),
                              &width, &height, &channels, kChannels),
        &stbi_image_free);
    if (!decoded) {
        const std::string_view reason = stbi_failure_reason();
        const bool isTooLarge = reason == "outofmem" || reason == "too large";
        throw Failure(isTooLarge ? "is too large for an icon" : "is not a readable PNG image");
    }
    Picture square = EmptyPicture(std::max(width, height));
    const int left = (square.size - width) / 2;
    const int top = (square.size - height) / 2;
    for (int y = 0; y < height; ++y) {
        const stbi_uc* const row = decoded.get() + std::ptrdiff_t{y} * width * kChannels;
        std::copy(
            row, row + std::ptrdiff_t{width} * kChannels,
            square.pixels.begin() + (std::ptrdiff_t{y + top} * square.size + left) * kChannels);
    }
    return square;
}

Picture Resized(const Picture& picture, int size) {
    if (picture.size == size) return picture;
    Picture resized = EmptyPicture(size);
    if (stbir_resize_uint8_srgb(picture.pixels.data(), picture.size, picture.size, 0,
                                resized.pixels.data(), size, size, 0, kChannels, kChannels - 1,
                                0) == 0) {
        throw Failure("cannot be resized");
    }
    return resized;
}

// A DIB: the colours from the bottom row up, then the 1-bit mask for readers without alpha.
Bytes BitmapOf(const Picture& picture) {
    const auto size = static_cast<std::uint32_t>(picture.size);
    ByteWriter writer;
    for (const std::uint32_t value :
         {kBitmapHeaderSize, size, size * 2, 1U | 32U << 16, 0U, 0U, 0U, 0U, 0U, 0U}) {
        writer.U32(value);
    }
    for (int y = picture.size; y-- > 0;) {
        for (int x = 0; x < picture.size; ++x) {
            const unsigned char* const pixel = picture.Pixel(x, y);
            writer.U8(pixel[2]);
            writer.U8(pixel[1]);
            writer.U8(pixel[0]);
            writer.U8(pixel[3]);
        }
    }
    for (int y = picture.size; y-- > 0;) {
        for (int begin = 0; begin < picture.size; begin += 8) {
            std::uint32_t bits = 0;
            for (int x = begin; x < begin + 8; ++x) {
                const bool isClear = x >= picture.size || picture.Pixel(x, y)[3] == 0;
                bits = bits << 1 | (isClear ? 1U : 0U);
            }
            writer.U8(bits);
        }
        writer.Align(4);
    }
    return writer.Take();
}

Bytes PngOf(const Picture& picture) {
    int size = 0;
    unsigned char* const written = stbi_write_png_to_mem(picture.pixels.data(), 0, picture.size,
                                                         picture.size, kChannels, &size);
    if (written == nullptr) throw Failure("cannot be written as a PNG image");
    const auto* const first = reinterpret_cast<const std::byte*>(written);
    Bytes content(first, first + size);
    STBIW_FREE(written);
    return content;
}

}  // namespace

std::vector<IconPicture> IconOfPng(ByteSpan file, std::span<const std::uint32_t> sizes) {
    const Picture original = DecodeSquare(file);
    std::vector<IconPicture> pictures;
    for (const std::uint32_t size : sizes) {
        const Picture resized = Resized(original, static_cast<int>(size));
        IconPicture& picture = pictures.emplace_back();
        picture.width = picture.height = size;
        picture.content = size == kPngSize ? PngOf(resized) : BitmapOf(resized);
    }
    return pictures;
}

}  // namespace tarn::tools
