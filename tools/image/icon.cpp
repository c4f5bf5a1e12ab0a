#include "tools/image/icon.h"

#include <algorithm>
#include <array>
#include <set>

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

constexpr std::array<std::uint8_t, 4> kPngMark = {0x89, 'P', 'N', 'G'};
constexpr std::size_t kHeadSize = 6;
constexpr std::size_t kFileEntrySize = 16;
constexpr std::size_t kGroupEntrySize = 14;
constexpr std::size_t kSmallestPicture = 40;  // a DIB header; a PNG file is larger
constexpr std::uint16_t kFirstGroup = 1;

// 256 does not fit into a byte and is stored as 0.
std::uint32_t SizeOf(std::uint8_t byte) {
    return byte == 0 ? 256 : byte;
}

// The resource ids of a group's images.
std::set<std::uint16_t> PicturesOf(const Bytes& group) {
    const ByteReader reader(group);
    std::set<std::uint16_t> numbers;
    for (std::size_t number = 0; number < reader.U16(4); ++number) {
        numbers.insert(reader.U16(kHeadSize + number * kGroupEntrySize + 12));
    }
    return numbers;
}

std::set<std::uint16_t> PicturesOf(const ResourceLanguages& languages) {
    std::set<std::uint16_t> numbers;
    for (const auto& [language, group] : languages) numbers.merge(PicturesOf(group.content));
    return numbers;
}

Bytes GroupOf(const std::vector<IconPicture>& pictures, const std::vector<std::uint16_t>& numbers) {
    ByteWriter writer;
    writer.U16(0);
    writer.U16(1);
    writer.U16(static_cast<std::uint32_t>(pictures.size()));
    for (std::size_t at = 0; at < pictures.size(); ++at) {
        const IconPicture& picture = pictures[at];
        writer.U8(picture.width);
        writer.U8(picture.height);
        writer.U8(picture.colors);
        writer.U8(0);
        writer.U16(picture.planes);
        writer.U16(picture.bits);
        writer.U32(static_cast<std::uint32_t>(picture.content.size()));
        writer.U16(numbers[at]);
    }
    return writer.Take();
}

}  // namespace

std::vector<IconPicture> ReadIcon(ByteSpan file) {
    const bool isPng = file.size() >= kPngMark.size() &&
                       std::equal(kPngMark.begin(), kPngMark.end(), file.begin(),
                                  [](std::uint8_t mark, std::byte byte) {
                                      return byte == static_cast<std::byte>(mark);
                                  });
    return isPng ? IconOfPng(file) : ReadIconFile(file);
}

std::vector<IconPicture> ReadIconFile(ByteSpan file) {
    const ByteReader reader(file);
    if (reader.Size() < kHeadSize || reader.U16(0) != 0 || reader.U16(2) != 1 ||
        reader.U16(4) == 0) {
        throw Failure("is neither an .ico nor a .png file");
    }
    std::vector<IconPicture> pictures;
    std::size_t total = 0;
    for (std::size_t number = 0; number < reader.U16(4); ++number) {
        const std::size_t entry = kHeadSize + number * kFileEntrySize;
        IconPicture picture;
        picture.width = SizeOf(reader.U8(entry));
        picture.height = SizeOf(reader.U8(entry + 1));
        picture.colors = reader.U8(entry + 2);
        picture.planes = reader.U16(entry + 4);
        picture.bits = reader.U16(entry + 6);
        const ByteSpan content = reader.Part(reader.U32(entry + 12), reader.U32(entry + 8));
        // Entries that share their bytes could exhaust the memory.
        total += content.size();
        if (content.size() < kSmallestPicture || total > reader.Size()) {
            throw Failure("has a corrupt image");
        }
        picture.content.assign(content.begin(), content.end());
        pictures.push_back(std::move(picture));
    }
    return pictures;
}

void SetIcon(ResourceTree& tree, const std::vector<IconPicture>& pictures) {
    ResourceName group = kFirstGroup;
    std::set<std::uint16_t> taken;
    ResourceNames& groups = tree[kResourceIconGroup];
    if (!groups.empty()) {
        group = groups.begin()->first;
        const std::set<std::uint16_t> old = PicturesOf(groups.begin()->second);
        groups.erase(groups.begin());
        for (const auto& [name, languages] : groups) taken.merge(PicturesOf(languages));
        for (const std::uint16_t number : old) {
            if (taken.count(number) == 0) RemoveResource(tree, kResourceIcon, number);
        }
    }
    // Images without a group keep their ids, too.
    for (const auto& [name, languages] : tree[kResourceIcon]) taken.insert(name.id);
    if (taken.size() + pictures.size() > UINT16_MAX) {
        throw Failure("has no free id for another icon");
    }
    std::vector<std::uint16_t> numbers;
    std::uint16_t next = 1;
    for (const IconPicture& picture : pictures) {
        while (taken.count(next) != 0) ++next;
        ReplaceResource(tree, kResourceIcon, next, picture.content);
        numbers.push_back(next++);
    }
    ReplaceResource(tree, kResourceIconGroup, group, GroupOf(pictures, numbers));
}

}  // namespace tarn::tools
