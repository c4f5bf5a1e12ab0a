// Resizes the resource section of an executable and moves what follows it.
#include <algorithm>
#include <cstring>

#include "tools/common/failure.h"
#include "tools/image/executable.h"
#include "tools/image/pe_fields.h"
#include "tools/image/resource_section.h"

namespace tarn::tools {

void Executable::SetResources(const ResourceTree& tree) {
    Section* section = ResourceSectionToExchange();
    if (section == nullptr) section = &AppendSection();
    Bytes content = WriteResourceSection(tree, section->address);
    const std::size_t size = content.size();
    content.resize(AlignedUp(size, fileAlignment_));
    const auto grown = static_cast<std::uint32_t>(content.size() - section->raw.size());
    const std::uint32_t data = ByteReader(headers_).U32(optionalHeader_ + kInitializedDataSize);
    StoreU32(headers_, optionalHeader_ + kInitializedDataSize, data + grown);
    section->raw = std::move(content);
    section->virtualSize = static_cast<std::uint32_t>(size);
    SetDirectory(kDirectoryResources, section->address, size);
    PlaceFollowing(*section);
    MoveFileOffsets();
    WriteSectionHeaders();
}

// Only the resource directory may refer to addresses in or after the section. The relocation
// section is the exception that can be moved, because only its directory refers to it.
bool Executable::CanBeResized(const Section& section) const {
    bool isFollowed = false;
    for (const Section& other : sections_) {
        if (other.address <= section.address) continue;
        if (other.address != Directory(kDirectoryRelocations, kDirectoryAddress)) return false;
        isFollowed = true;
    }
    for (std::size_t number = 0; number < directoryCount_; ++number) {
        if (number == kDirectoryResources || number == kDirectorySignature) continue;
        if (number == kDirectoryRelocations && isFollowed) continue;
        if (Directory(number, kDirectoryAddress) >= section.address) return false;
    }
    return true;
}

// The resource section, if it contains nothing else and can be resized; otherwise null.
Executable::Section* Executable::ResourceSectionToExchange() {
    const std::uint32_t address = Directory(kDirectoryResources, kDirectoryAddress);
    for (Section& section : sections_) {
        if (address == 0 || section.address != address || section.raw.empty()) continue;
        const bool isNamedSo = std::memcmp(&headers_[section.header], ".rsrc\0\0", 8) == 0;
        return isNamedSo && CanBeResized(section) ? &section : nullptr;
    }
    return nullptr;
}

Executable::Section& Executable::AppendSection() {
    const std::size_t header = sectionTable_ + sections_.size() * kSectionHeaderSize;
    const std::size_t end = std::min<std::size_t>(
        headers_.size(), ByteReader(headers_).U32(optionalHeader_ + kHeadersSize));
    const auto isZero = [](std::byte value) { return value == std::byte{0}; };
    if (sections_.size() >= kMostSections || header + kSectionHeaderSize > end ||
        !std::all_of(&headers_[header], &headers_[header] + kSectionHeaderSize, isZero)) {
        throw Failure("has no room for another section header");
    }
    const Section& last = sections_.back();
    Section section;
    section.header = header;
    section.address = static_cast<std::uint32_t>(
        AlignedUp(std::uint64_t{last.address} + std::max(last.virtualSize, 1U), sectionAlignment_));
    for (std::size_t number = 0; number < directoryCount_; ++number) {
        if (number == kDirectorySignature) continue;
        if (Directory(number, kDirectoryAddress) >= section.address) {
            throw Failure("has a corrupt header (a directory outside the sections)");
        }
    }
    section.characteristics = kReadableData;
    // Last in the file.
    section.oldOffset = oldOverlayOffset_;
    std::memcpy(&headers_[header], ".rsrc\0\0", 8);
    Section& lastInFile = sections_[fileOrder_.back()];
    lastInFile.raw.resize(AlignedUp(lastInFile.raw.size(), fileAlignment_));
    fileOrder_.push_back(sections_.size());
    sections_.push_back(std::move(section));
    StoreU16(headers_, peHeader_ + kSectionCount, static_cast<std::uint32_t>(sections_.size()));
    return sections_.back();
}

// The loader requires sections without gaps in memory.
void Executable::PlaceFollowing(const Section& changed) {
    std::uint64_t next = std::uint64_t{changed.address} +
                         AlignedUp(std::max(changed.virtualSize, 1U), sectionAlignment_);
    for (Section& section : sections_) {
        if (section.address <= changed.address) continue;
        section.address = static_cast<std::uint32_t>(next);
        SetDirectory(kDirectoryRelocations, section.address,
                     Directory(kDirectoryRelocations, kDirectoryLength));
        next += AlignedUp(std::max(section.virtualSize, 1U), sectionAlignment_);
    }
    if (next > UINT32_MAX) throw Failure("would be larger than 4 GiB");
    StoreU32(headers_, optionalHeader_ + kImageSize, static_cast<std::uint32_t>(next));
}

// The offsets of the sections in file order, followed by that of the overlay.
std::vector<std::size_t> Executable::Offsets() const {
    std::vector<std::size_t> offsets = {headers_.size()};
    for (const std::size_t number : fileOrder_) {
        offsets.push_back(offsets.back() + sections_[number].raw.size());
    }
    return offsets;
}

std::size_t Executable::OverlayOffset() const {
    return Offsets().back();
}

std::size_t Executable::MovedOffset(std::size_t oldOffset) const {
    const std::vector<std::size_t> offsets = Offsets();
    if (oldOffset >= oldOverlayOffset_) return oldOffset - oldOverlayOffset_ + offsets.back();
    for (std::size_t place = fileOrder_.size(); place-- > 0;) {
        const std::size_t old = sections_[fileOrder_[place]].oldOffset;
        if (oldOffset >= old) return oldOffset - old + offsets[place];
    }
    return oldOffset;
}

// Updates the other fields that contain file offsets: the symbol table's and the debug directory's.
void Executable::MoveFileOffsets() {
    const std::size_t symbols = ByteReader(headers_).U32(peHeader_ + kSymbolsOffset);
    if (symbols != 0) {
        StoreU32(headers_, peHeader_ + kSymbolsOffset,
                 static_cast<std::uint32_t>(MovedOffset(symbols)));
    }
    const std::uint32_t address = Directory(kDirectoryDebug, kDirectoryAddress);
    const Section* const found = SectionAt(address);
    if (address == 0 || found == nullptr) return;
    Section& section = sections_[static_cast<std::size_t>(found - sections_.data())];
    const std::size_t begin = address - section.address;
    const std::size_t size = std::min<std::size_t>(Directory(kDirectoryDebug, kDirectoryLength),
                                                   section.raw.size() - begin);
    for (std::size_t at = 0; at + kDebugEntrySize <= size; at += kDebugEntrySize) {
        const std::size_t field = begin + at + kDebugOffset;
        const std::uint32_t offset = ByteReader(section.raw).U32(field);
        if (offset != 0) {
            StoreU32(section.raw, field, static_cast<std::uint32_t>(MovedOffset(offset)));
        }
    }
}

void Executable::WriteSectionHeaders() {
    std::vector<std::size_t> offsets = Offsets();
    for (std::size_t place = 0; place < fileOrder_.size(); ++place) {
        Section& section = sections_[fileOrder_[place]];
        StoreU32(headers_, section.header + kSectionRawSize,
                 static_cast<std::uint32_t>(section.raw.size()));
        StoreU32(headers_, section.header + kSectionOffset,
                 static_cast<std::uint32_t>(offsets[place]));
        // Later changes start from these offsets.
        section.oldOffset = offsets[place];
    }
    oldOverlayOffset_ = offsets.back();
    for (const Section& section : sections_) {
        StoreU32(headers_, section.header + kSectionVirtualSize, section.virtualSize);
        StoreU32(headers_, section.header + kSectionAddress, section.address);
        StoreU32(headers_, section.header + kSectionCharacteristics, section.characteristics);
    }
}

}  // namespace tarn::tools
