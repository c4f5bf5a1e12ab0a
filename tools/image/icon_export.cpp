#include "tools/image/icon_export.h"

#include <vector>

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

constexpr std::size_t kHeadSize = 6;
constexpr std::size_t kGroupEntrySize = 14;
constexpr std::size_t kSharedEntrySize = 8;  // width to bits are the same in both formats
constexpr std::size_t kFileEntrySize = 16;

}  // namespace

Bytes IconFileOf(const ResourceTree& tree) {
    const auto groups = tree.find(kResourceIconGroup);
    if (groups == tree.end() || groups->second.empty()) return {};
    const ByteReader group(groups->second.begin()->second.begin()->second.content);
    const std::size_t count = group.U16(4);
    ByteWriter file;
    file.Put(group.Part(0, kHeadSize));
    std::vector<const Bytes*> pictures;
    std::size_t offset = kHeadSize + count * kFileEntrySize;
    for (std::size_t number = 0; number < count; ++number) {
        const std::size_t entry = kHeadSize + number * kGroupEntrySize;
        const Bytes* const picture = FindResource(tree, kResourceIcon, group.U16(entry + 12));
        if (picture == nullptr) throw Failure("has an icon without its image");
        file.Put(group.Part(entry, kSharedEntrySize));
        file.U32(static_cast<std::uint32_t>(picture->size()));
        file.U32(static_cast<std::uint32_t>(offset));
        offset += picture->size();
        pictures.push_back(picture);
    }
    for (const Bytes* const picture : pictures) file.Put(*picture);
    return file.Take();
}

}  // namespace tarn::tools
