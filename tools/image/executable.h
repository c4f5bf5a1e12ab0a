#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "tools/common/byte_io.h"
#include "tools/image/resource_tree.h"

namespace tarn::tools {

/// A Windows executable (PE32 or PE32+) whose resources and overlay can be replaced on any
/// platform. Hand-written, because `UpdateResourceW` exists on Windows only and drops the appended
/// jar, and the portable PE libraries either cannot write resources or rewrite the whole image;
/// this class changes the resource section and the offsets that depend on it, and copies everything
/// else. Failures do not name the file, which the caller knows.
class Executable {
  public:
    /// Throws Failure for anything but an executable, and for a truncated one or one with
    /// overlapping sections.
    explicit Executable(ByteSpan content);

    /// The machine of the file header (IMAGE_FILE_MACHINE_...).
    std::uint16_t Machine() const { return machine_; }

    /// Throws Failure when they are corrupt.
    ResourceTree Resources() const;

    /// Replaces the resources. Code, relocations and overlay remain unchanged. Throws Failure when
    /// the headers have no room for a section.
    void SetResources(const ResourceTree& tree);

    /// A signature covers the exact bytes; it must be removed before a change.
    bool IsSigned() const { return isSigned_; }
    void DropSignature();

    /// The data after the sections, without the signature: for example an appended jar.
    const Bytes& Overlay() const { return overlay_; }
    void SetOverlay(Bytes overlay) { overlay_ = std::move(overlay); }

    /// The offset of the overlay in the file.
    std::size_t OverlayOffset() const;

    /// The complete file with updated size fields and checksum.
    Bytes Content() const;

  private:
    struct Section {
        std::size_t header = 0;  // offset of its header in headers_
        std::uint32_t address = 0;
        std::uint32_t virtualSize = 0;
        std::uint32_t characteristics = 0;
        std::size_t oldOffset = 0;  // in the original file
        Bytes raw;                  // empty for a section without data in the file
    };

    void ReadHeaders(const ByteReader& file);
    void ReadSections(const ByteReader& file);
    void ReadOverlay(const ByteReader& file);
    std::uint32_t Directory(std::size_t number, std::size_t field) const;
    void SetDirectory(std::size_t number, std::uint32_t address, std::size_t size);
    const Section* SectionAt(std::uint32_t address) const;
    bool CanBeResized(const Section& section) const;
    Section* ResourceSectionToExchange();
    Section& AppendSection();
    void PlaceFollowing(const Section& changed);
    std::vector<std::size_t> Offsets() const;
    std::size_t MovedOffset(std::size_t oldOffset) const;
    void WriteSectionHeaders();
    void MoveFileOffsets();

    Bytes headers_;
    std::size_t peHeader_ = 0;        // offset of the signature "PE"
    std::size_t optionalHeader_ = 0;  // offset of the optional header
    std::size_t directories_ = 0;
    std::size_t directoryCount_ = 0;
    std::size_t sectionTable_ = 0;
    std::uint16_t machine_ = 0;
    std::uint32_t sectionAlignment_ = 0;
    std::uint32_t fileAlignment_ = 0;
    std::vector<Section> sections_;       // by address
    std::vector<std::size_t> fileOrder_;  // indices of the sections with data, by offset
    std::size_t oldOverlayOffset_ = 0;
    Bytes overlay_;
    bool isSigned_ = false;
};

/// The checksum over the whole file, with the checksum field itself taken as 0
/// (`CheckSumMappedFile`).
std::uint32_t ImageChecksum(ByteSpan content, std::size_t checksumField);

}  // namespace tarn::tools
