#include "tools/image/executable.h"

#include <algorithm>

#include "tools/common/failure.h"
#include "tools/image/pe_fields.h"
#include "tools/image/resource_section.h"

namespace tarn::tools {
namespace {

constexpr char kNoExecutable[] = "is not a Windows executable";

bool IsPowerOfTwo(std::uint32_t value) {
    return value != 0 && (value & (value - 1)) == 0;
}

}  // namespace

Executable::Executable(ByteSpan content) {
    const ByteReader file(content);
    ReadHeaders(file);
    ReadSections(file);
    ReadOverlay(file);
}

void Executable::ReadHeaders(const ByteReader& file) {
    if (file.Size() < kDosHeaderSize || file.U16(0) != kDosMark) throw Failure(kNoExecutable);
    peHeader_ = file.U32(kPeHeaderOffset);
    if (peHeader_ > file.Size() - kDosHeaderSize || file.U32(peHeader_) != kPeMark) {
        throw Failure(kNoExecutable);
    }
    machine_ = file.U16(peHeader_ + kMachine);
    optionalHeader_ = peHeader_ + kFileHeaderEnd;
    const std::uint16_t magic = file.U16(optionalHeader_);
    if (magic != kPe32 && magic != kPe32Plus) throw Failure(kNoExecutable);
    directories_ = optionalHeader_ + (magic == kPe32 ? kDirectories32 : kDirectories64);
    directoryCount_ = file.U32(directories_ - 4);
    const std::size_t optionalSize = file.U16(peHeader_ + kOptionalHeaderSize);
    sectionTable_ = optionalHeader_ + optionalSize;
    if (directoryCount_ <= kDirectoryDebug || directoryCount_ > kMostDirectories ||
        directories_ + directoryCount_ * kDirectorySize > sectionTable_) {
        throw Failure("is an executable with unsupported headers");
    }
    sectionAlignment_ = file.U32(optionalHeader_ + kSectionAlignment);
    fileAlignment_ = file.U32(optionalHeader_ + kFileAlignment);
    if (!IsPowerOfTwo(sectionAlignment_) || !IsPowerOfTwo(fileAlignment_) ||
        sectionAlignment_ < fileAlignment_ || sectionAlignment_ > kLargestAlignment) {
        throw Failure("has a corrupt header (alignments)");
    }
}

void Executable::ReadSections(const ByteReader& file) {
    const std::size_t count = file.U16(peHeader_ + kSectionCount);
    if (count == 0 || count > kMostSections) throw Failure("has a corrupt header (sections)");
    std::uint64_t nextAddress = 0;
    for (std::size_t number = 0; number < count; ++number) {
        const std::size_t header = sectionTable_ + number * kSectionHeaderSize;
        Section section;
        section.header = header;
        section.virtualSize = file.U32(header + kSectionVirtualSize);
        section.address = file.U32(header + kSectionAddress);
        section.characteristics = file.U32(header + kSectionCharacteristics);
        section.oldOffset = file.U32(header + kSectionOffset);
        const std::uint32_t rawSize = file.U32(header + kSectionRawSize);
        // The loader also substitutes the raw size.
        if (section.virtualSize == 0) section.virtualSize = rawSize;
        if (section.address < nextAddress || section.address % sectionAlignment_ != 0) {
            throw Failure("has a corrupt header (overlapping sections)");
        }
        nextAddress = std::uint64_t{section.address} +
                      AlignedUp(std::max<std::uint64_t>(section.virtualSize, 1), sectionAlignment_);
        if (nextAddress > UINT32_MAX) throw Failure("has a corrupt header (sections)");
        if (rawSize != 0 && section.oldOffset != 0) {
            const ByteSpan raw = file.Part(section.oldOffset, rawSize);
            section.raw.assign(raw.begin(), raw.end());
            fileOrder_.push_back(sections_.size());
        }
        sections_.push_back(std::move(section));
    }
    if (fileOrder_.empty()) throw Failure("has a corrupt header (sections)");
    std::stable_sort(fileOrder_.begin(), fileOrder_.end(),
                     [&](std::size_t left, std::size_t right) {
                         return sections_[left].oldOffset < sections_[right].oldOffset;
                     });
    std::size_t end = sectionTable_ + count * kSectionHeaderSize;
    for (const std::size_t number : fileOrder_) {
        if (sections_[number].oldOffset < end) {
            throw Failure("has a corrupt header (overlapping sections)");
        }
        end = sections_[number].oldOffset + sections_[number].raw.size();
    }
    // Data between two sections is kept with the first one.
    for (std::size_t place = 0; place + 1 < fileOrder_.size(); ++place) {
        Section& section = sections_[fileOrder_[place]];
        const ByteSpan whole = file.Part(
            section.oldOffset, sections_[fileOrder_[place + 1]].oldOffset - section.oldOffset);
        section.raw.assign(whole.begin(), whole.end());
    }
    const ByteSpan headers = file.Part(0, sections_[fileOrder_.front()].oldOffset);
    headers_.assign(headers.begin(), headers.end());
    oldOverlayOffset_ = end;
}

void Executable::ReadOverlay(const ByteReader& file) {
    std::size_t end = file.Size();
    // The only directory whose address is a file offset.
    const std::size_t signature = Directory(kDirectorySignature, kDirectoryAddress);
    const std::size_t size = Directory(kDirectorySignature, kDirectoryLength);
    if (signature != 0 || size != 0) {
        if (signature < oldOverlayOffset_ || size == 0 || signature > end ||
            end - signature < size || end - signature > AlignedUp(size, kSignatureAlignment)) {
            throw Failure("has a corrupt signature, or other data after it");
        }
        isSigned_ = true;
        end = signature;
    }
    const ByteSpan overlay = file.Part(oldOverlayOffset_, end - oldOverlayOffset_);
    overlay_.assign(overlay.begin(), overlay.end());
}

void Executable::DropSignature() {
    isSigned_ = false;
    SetDirectory(kDirectorySignature, 0, 0);
}

std::uint32_t Executable::Directory(std::size_t number, std::size_t field) const {
    return ByteReader(headers_).U32(directories_ + number * kDirectorySize + field);
}

void Executable::SetDirectory(std::size_t number, std::uint32_t address, std::size_t size) {
    const std::size_t at = directories_ + number * kDirectorySize;
    StoreU32(headers_, at + kDirectoryAddress, address);
    StoreU32(headers_, at + kDirectoryLength, static_cast<std::uint32_t>(size));
}

const Executable::Section* Executable::SectionAt(std::uint32_t address) const {
    for (const Section& section : sections_) {
        if (address >= section.address && address - section.address < section.raw.size()) {
            return &section;
        }
    }
    return nullptr;
}

ResourceTree Executable::Resources() const {
    const std::uint32_t address = Directory(kDirectoryResources, kDirectoryAddress);
    if (address == 0) return {};
    const Section* const section = SectionAt(address);
    if (section == nullptr) throw Failure("has resources outside its sections");
    return ReadResourceSection(ByteSpan(section->raw).subspan(address - section->address), address);
}

Bytes Executable::Content() const {
    if (isSigned_) throw Failure("is signed; a change invalidates the signature");
    Bytes content = headers_;
    for (const std::size_t number : fileOrder_) {
        content.insert(content.end(), sections_[number].raw.begin(), sections_[number].raw.end());
    }
    content.insert(content.end(), overlay_.begin(), overlay_.end());
    if (content.size() > UINT32_MAX) throw Failure("would be larger than 4 GiB");
    const std::size_t field = optionalHeader_ + kChecksum;
    StoreU32(content, field, ImageChecksum(content, field));
    return content;
}

std::uint32_t ImageChecksum(ByteSpan content, std::size_t checksumField) {
    std::uint64_t sum = 0;
    for (std::size_t at = 0; at < content.size(); at += 2) {
        if (at == checksumField || at == checksumField + 2) continue;
        const auto high = at + 1 < content.size() ? std::uint32_t(content[at + 1]) : 0U;
        sum += std::uint32_t(content[at]) | high << 8;
    }
    while (sum >> 16 != 0) sum = (sum & 0xFFFF) + (sum >> 16);
    return static_cast<std::uint32_t>(sum + content.size());
}

}  // namespace tarn::tools
