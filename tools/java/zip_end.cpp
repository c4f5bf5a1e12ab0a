#include "tools/java/zip_end.h"

#include <algorithm>

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

constexpr std::uint64_t kEndSize = 22;
constexpr std::size_t kEntriesHere = 8;  // fields of the end record
constexpr std::size_t kEntries = 10;
constexpr std::size_t kDirectorySize = 12;
constexpr std::size_t kDirectoryOffset = 16;
constexpr std::size_t kCommentSize = 20;
constexpr std::uint64_t kLargestComment = 0xFFFF;
constexpr std::uint64_t kLocatorSize = 20;
constexpr std::uint64_t kEnd64Size = 56;
constexpr std::uint32_t kEndMark = 0x06054b50;
constexpr std::uint32_t kLocatorMark = 0x07064b50;
constexpr std::uint32_t kEnd64Mark = 0x06064b50;
constexpr std::uint32_t kDirectoryMark = 0x02014b50;
constexpr std::uint32_t kEntryMark = 0x04034b50;

class ZipReader {
  public:
    explicit ZipReader(std::span<const std::byte> content) : content_(content) {}

    std::uint64_t Size() const { return content_.size(); }

    // 0 out of bounds, which is neither a signature nor a valid size.
    std::uint64_t Number(std::uint64_t at, unsigned bytes) const {
        if (at > content_.size() || content_.size() - at < bytes) return 0;
        std::uint64_t value = 0;
        for (unsigned byte = bytes; byte-- > 0;) {
            value = value << 8 | static_cast<std::uint8_t>(content_[at + byte]);
        }
        return value;
    }

    bool HasMark(std::uint64_t at, std::uint32_t mark) const { return Number(at, 4) == mark; }

  private:
    std::span<const std::byte> content_;
};

struct Directory {
    std::uint64_t end = 0;  // its end: the start of the first end record
    std::uint64_t size = 0;
    std::uint64_t offset = 0;
    std::uint64_t entries = 0;
};

Directory DirectoryOf(const ZipReader& zip, std::uint64_t end) {
    const Directory plain = {end, zip.Number(end + kDirectorySize, 4),
                             zip.Number(end + kDirectoryOffset, 4), zip.Number(end + kEntries, 2)};
    if (end < kLocatorSize + kEnd64Size) return plain;
    const std::uint64_t locator = end - kLocatorSize;
    if (!zip.HasMark(locator, kLocatorMark)) return plain;
    // The locator's offset ignores data before the zip file; the record usually precedes the
    // locator.
    std::uint64_t end64 = zip.Number(locator + 8, 8);
    if (!zip.HasMark(end64, kEnd64Mark) || end64 > locator) end64 = locator - kEnd64Size;
    if (!zip.HasMark(end64, kEnd64Mark)) return plain;
    const Directory large = {end64, zip.Number(end64 + 40, 8), zip.Number(end64 + 48, 8),
                             zip.Number(end64 + 32, 8)};
    // A record that contradicts the plain one is arbitrary data that looks like a record.
    const bool isSame = (large.size == plain.size || plain.size == 0xFFFFFFFF) &&
                        (large.offset == plain.offset || plain.offset == 0xFFFFFFFF) &&
                        (large.entries == plain.entries || plain.entries == 0xFFFF);
    return isSame ? large : plain;
}

std::optional<ZipPlace> PlaceAt(const ZipReader& zip, std::uint64_t end) {
    const Directory directory = DirectoryOf(zip, end);
    if (directory.size > directory.end) return std::nullopt;
    const std::uint64_t start = directory.end - directory.size;
    if (directory.offset > start) return std::nullopt;
    const std::uint64_t begin = start - directory.offset;
    const std::uint64_t after = end + kEndSize + zip.Number(end + kCommentSize, 2);
    if (after > zip.Size()) return std::nullopt;
    const bool isWhole = directory.size == 0 || zip.HasMark(start, kDirectoryMark);
    const bool startsWithEntry = directory.size != 0 && zip.HasMark(begin, kEntryMark);
    if (!isWhole || (after != zip.Size() && !startsWithEntry)) return std::nullopt;
    const bool isAbsolute = begin == 0 && directory.size != 0 && !zip.HasMark(0, kEntryMark);
    ZipPlace place;
    place.begin = static_cast<std::size_t>(begin);
    place.end = static_cast<std::size_t>(after);
    place.entries = directory.entries;
    place.directorySize = directory.size;
    place.directoryEnd = static_cast<std::size_t>(directory.end);
    place.endRecord = static_cast<std::size_t>(end);
    place.hasAbsoluteOffsets = isAbsolute;
    return place;
}

}  // namespace

std::optional<ZipPlace> FindZip(std::span<const std::byte> content) {
    const ZipReader zip(content);
    if (zip.Size() < kEndSize) return std::nullopt;
    const std::uint64_t last = zip.Size() - kEndSize;
    const std::uint64_t first = last > kLargestComment ? last - kLargestComment : 0;
    for (std::uint64_t end = last + 1; end-- > first;) {
        if (!zip.HasMark(end, kEndMark)) continue;
        const std::optional<ZipPlace> place = PlaceAt(zip, end);
        if (place) return place;
    }
    return std::nullopt;
}

Bytes WithoutZip64Records(std::span<const std::byte> zip) {
    const std::optional<ZipPlace> place = FindZip(zip);
    if (!place) throw Failure("is not a jar or zip file");
    Bytes content(zip.begin(), zip.end());
    if (place->directoryEnd == place->endRecord) return content;
    const auto put = [&](std::size_t at, std::uint64_t value, unsigned bytes) {
        for (unsigned byte = 0; byte < bytes; ++byte, value >>= 8) {
            content[place->endRecord + at + byte] = static_cast<std::byte>(value & 0xFF);
        }
    };
    const std::size_t start = place->directoryEnd - static_cast<std::size_t>(place->directorySize);
    put(kEntriesHere, std::min<std::uint64_t>(place->entries, 0xFFFF), 2);
    put(kEntries, std::min<std::uint64_t>(place->entries, 0xFFFF), 2);
    put(kDirectorySize, place->directorySize, 4);
    put(kDirectoryOffset, start - (place->hasAbsoluteOffsets ? 0 : place->begin), 4);
    content.erase(content.begin() + static_cast<std::ptrdiff_t>(place->directoryEnd),
                  content.begin() + static_cast<std::ptrdiff_t>(place->endRecord));
    return content;
}

}  // namespace tarn::tools
