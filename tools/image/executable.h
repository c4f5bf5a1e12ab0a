#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "tools/common/byte_io.h"
#include "tools/image/resource_tree.h"

namespace tarn::tools {

/// A Windows executable (PE32+ or PE32) whose resources can be exchanged without Windows. Failures
/// name no file: the caller knows it.
class Executable {
  public:
    /// Throws Failure for what is no executable, is cut short or has overlapping sections.
    explicit Executable(ByteSpan content);

    /// The machine that the code is for (IMAGE_FILE_MACHINE_...).
    std::uint16_t Machine() const { return machine_; }

    /// Throws Failure when they are broken.
    ResourceTree Resources() const;

    /// Puts these resources in place of the present ones. The code, the relocations and the data
    /// behind the sections stay as they are. Throws Failure when there is no room for a section.
    void SetResources(const ResourceTree& tree);

    /// A signature holds for the exact bytes, so whoever changes the file has to drop it.
    bool IsSigned() const { return isSigned_; }
    void DropSignature();

    /// The data behind the sections that is no signature, such as an appended jar.
    const Bytes& Overlay() const { return overlay_; }
    void SetOverlay(Bytes overlay) { overlay_ = std::move(overlay); }

    /// Where the overlay begins in the file.
    std::size_t OverlayOffset() const;

    /// The whole file, with its size fields and its checksum.
    Bytes Content() const;

  private:
    struct Section {
        std::size_t header = 0;  // where its header stands in headers_
        std::uint32_t address = 0;
        std::uint32_t virtualSize = 0;
        std::uint32_t characteristics = 0;
        std::size_t oldOffset = 0;  // in the file that was read
        Bytes raw;                  // empty for what is all zeros
    };

    void ReadHeaders(const ByteReader& file);
    void ReadSections(const ByteReader& file);
    void ReadOverlay(const ByteReader& file);
    std::uint32_t Directory(std::size_t number, std::size_t field) const;
    void SetDirectory(std::size_t number, std::uint32_t address, std::size_t size);
    const Section* SectionAt(std::uint32_t address) const;
    bool MayChangeItsSize(const Section& section) const;
    Section* ResourceSectionToExchange();
    Section& AppendSection();
    void PlaceFollowing(const Section& changed);
    std::vector<std::size_t> Offsets() const;
    std::size_t MovedOffset(std::size_t oldOffset) const;
    void WriteSectionHeaders();
    void MoveFileOffsets();

    Bytes headers_;
    std::size_t peHeader_ = 0;        // offset of "PE"
    std::size_t optionalHeader_ = 0;  // and of what follows the file header
    std::size_t directories_ = 0;
    std::size_t directoryCount_ = 0;
    std::size_t sectionTable_ = 0;
    std::uint16_t machine_ = 0;
    std::uint32_t sectionAlignment_ = 0;
    std::uint32_t fileAlignment_ = 0;
    std::vector<Section> sections_;       // by address
    std::vector<std::size_t> fileOrder_;  // indices of those with bytes, by offset
    std::size_t oldOverlayOffset_ = 0;
    Bytes overlay_;
    bool isSigned_ = false;
};

/// The checksum of an executable's header over the whole file, in which that field counts as 0.
std::uint32_t ImageChecksum(ByteSpan content, std::size_t checksumField);

}  // namespace tarn::tools
