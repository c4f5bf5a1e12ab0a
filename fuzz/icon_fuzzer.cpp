// An icon and a splash picture are any files that are given to the companion program.

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string_view>

#include "fuzz/fuzz_input.h"
#include "tools/common/failure.h"
#include "tools/image/icon.h"
#include "tools/image/picture_format.h"

namespace {

using tarn::fuzz::FuzzInput;
using tarn::fuzz::Require;
using namespace tarn::tools;

using Pictures = std::vector<IconPicture>;

std::optional<Pictures> ReadIco(const Bytes& content) {
    try {
        return ReadIconFile(content);
    } catch (const Failure&) {
        return std::nullopt;
    }
}

std::size_t NumberAt(const Bytes& content, std::size_t at, std::size_t bytes) {
    std::size_t number = 0;
    for (std::size_t byte = 0; byte < bytes; ++byte) {
        number += static_cast<std::size_t>(content[at + byte]) << (8 * byte);
    }
    return number;
}

// The images of an .ico file by the description of the format, each as its bytes.
std::optional<std::vector<Bytes>> NaiveImages(const Bytes& content) {
    if (content.size() < 6 || NumberAt(content, 0, 4) != 0x10000) return std::nullopt;
    const std::size_t count = NumberAt(content, 4, 2);
    if (count == 0 || content.size() < 6 + 16 * count) return std::nullopt;
    std::vector<Bytes> images;
    std::size_t total = 0;
    for (std::size_t entry = 6; entry < 6 + 16 * count; entry += 16) {
        const std::size_t size = NumberAt(content, entry + 8, 4);
        const std::size_t at = NumberAt(content, entry + 12, 4);
        total += size;
        if (size < 40 || total > content.size() || at + size > content.size()) return std::nullopt;
        const auto first = content.begin() + static_cast<std::ptrdiff_t>(at);
        images.emplace_back(first, first + static_cast<std::ptrdiff_t>(size));
    }
    return images;
}

// An .ico file is read as the model reads it, and its images replace those of an executable whose
// icon group is any bytes.
void CheckIconFile(const Bytes& content, const Bytes& group) {
    if (PictureFormat(content) == "PNG") return;
    const std::optional<Pictures> pictures = ReadIco(content);
    const std::optional<std::vector<Bytes>> expected = NaiveImages(content);
    Require(pictures.has_value() == expected.has_value());
    if (!pictures) return;
    Require(pictures->size() == expected->size());
    for (std::size_t at = 0; at < expected->size(); ++at) {
        const IconPicture& picture = (*pictures)[at];
        Require(picture.content == (*expected)[at]);
        Require(picture.width >= 1 && picture.width <= 256);
        Require(picture.height >= 1 && picture.height <= 256);
    }
    ResourceTree tree;
    tree[kResourceIconGroup][1][7].content = group;
    tree[kResourceIcon][1][7].content = Bytes(3);
    try {
        SetIcon(tree, *pictures);
    } catch (const Failure&) {
        return;
    }
    const ResourceNames& icons = tree[kResourceIcon];
    for (const IconPicture& picture : *pictures) {
        Require(std::any_of(icons.begin(), icons.end(), [&](const auto& icon) {
            return icon.second.begin()->second.content == picture.content;
        }));
    }
}

// The smallest image only: the others are resized by the same code, which takes much longer.
std::optional<IconPicture> ReadPng(const Bytes& content) {
    constexpr std::array<std::uint32_t, 1> kSmallest = {kIconSizes.front()};
    try {
        const Pictures pictures = IconOfPng(content, kSmallest);
        Require(pictures.size() == 1 && pictures[0].width == 16 && pictures[0].height == 16);
        Require(pictures[0].content.size() == 40 + 16 * 16 * 4 + 16 * 4);
        return pictures[0];
    } catch (const Failure&) {
        return std::nullopt;
    }
}

constexpr std::size_t kSize = 16;
constexpr std::size_t kRow = kSize * 4;

void PutNumber(Bytes& file, std::size_t number) {
    for (int shift = 24; shift >= 0; shift -= 8) {
        file.push_back(static_cast<std::byte>(number >> shift & 0xFF));
    }
}

void PutChunk(Bytes& file, std::string_view kind, const Bytes& data) {
    PutNumber(file, data.size());
    for (const char letter : kind) file.push_back(static_cast<std::byte>(letter));
    file.insert(file.end(), data.begin(), data.end());
    PutNumber(file, 0);  // a checksum that the decoder does not read
}

// A PNG of 16 x 16 pixels with these filtered rows, each after its filter's number, not compressed.
Bytes PngOf(const Bytes& rows) {
    Bytes header;
    PutNumber(header, kSize);
    PutNumber(header, kSize);
    for (const int field : {8, 6, 0, 0, 0}) header.push_back(static_cast<std::byte>(field));
    Bytes data;
    const std::size_t size = rows.size();
    for (const std::size_t byte : {std::size_t{0x78}, std::size_t{0x01}, std::size_t{0x01},
                                   size & 0xFF, size >> 8, ~size & 0xFF, ~size >> 8 & 0xFF}) {
        data.push_back(static_cast<std::byte>(byte));
    }
    data.insert(data.end(), rows.begin(), rows.end());
    PutNumber(data, 0);
    Bytes file;
    for (const char letter : std::string_view("\x89PNG\r\n\x1A\n")) {
        file.push_back(static_cast<std::byte>(letter));
    }
    PutChunk(file, "IHDR", header);
    PutChunk(file, "IDAT", data);
    PutChunk(file, "IEND", {});
    return file;
}

int NaivePredictor(int filter, int left, int up, int upLeft) {
    if (filter == 0) return 0;
    if (filter == 1) return left;
    if (filter == 2) return up;
    if (filter == 3) return (left + up) / 2;
    const int estimate = left + up - upLeft;
    const int a = std::abs(estimate - left), b = std::abs(estimate - up);
    const int c = std::abs(estimate - upLeft);
    return a <= b && a <= c ? left : b <= c ? up : upLeft;
}

// The filters are undone as the description of PNG has it.
void CheckFilters(FuzzInput input) {
    Bytes rows;
    std::array<std::array<int, kRow>, kSize> expected{};
    for (std::size_t y = 0; y < kSize; ++y) {
        const int filter = input.TakeNumber<std::uint8_t>() % 5;
        rows.push_back(static_cast<std::byte>(filter));
        for (std::size_t x = 0; x < kRow; ++x) {
            const auto written = input.TakeNumber<std::uint8_t>();
            rows.push_back(static_cast<std::byte>(written));
            const int left = x < 4 ? 0 : expected[y][x - 4];
            const int up = y == 0 ? 0 : expected[y - 1][x];
            const int upLeft = x < 4 || y == 0 ? 0 : expected[y - 1][x - 4];
            expected[y][x] = (written + NaivePredictor(filter, left, up, upLeft)) & 0xFF;
        }
    }
    const std::optional<IconPicture> picture = ReadPng(PngOf(rows));
    Require(picture.has_value());
    // The bitmap begins with its lowest row, and blue is first.
    const Bytes& bitmap = picture->content;
    for (std::size_t y = 0; y < kSize; ++y) {
        for (std::size_t x = 0; x < kRow; ++x) {
            const std::size_t channel = x % 4 == 3 ? 3 : 2 - x % 4;
            const std::size_t at = 40 + (kSize - 1 - y) * kRow + x / 4 * 4 + channel;
            Require(static_cast<int>(bitmap[at]) == expected[y][x]);
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // On the heap and alone, so that a byte read beyond it is noticed.
    Bytes content(size);
    if (size != 0) std::memcpy(content.data(), data, size);
    const std::size_t used = std::min<std::size_t>(size, 2);
    const Bytes rest(content.begin() + static_cast<std::ptrdiff_t>(used), content.end());
    CheckIconFile(content, rest);
    if (PictureFormat(content) == "PNG") {
        ReadPng(content);
    } else if (size != 0 && data[0] == 'F') {
        CheckFilters(FuzzInput(data + 1, size - 1));
    }
    return 0;
}
