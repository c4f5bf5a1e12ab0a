#pragma once

#include <cstddef>
#include <cstdint>

// Offsets of the fields of a PE file's headers, and their values.
namespace tarn::tools {

inline constexpr std::uint16_t kDosMark = 0x5A4D;
inline constexpr std::size_t kDosHeaderSize = 64;
inline constexpr std::size_t kPeHeaderOffset = 0x3C;

// Relative to the signature "PE".
inline constexpr std::uint32_t kPeMark = 0x00004550;
inline constexpr std::size_t kMachine = 4;
inline constexpr std::size_t kSectionCount = 6;
inline constexpr std::size_t kSymbolsOffset = 12;
inline constexpr std::size_t kOptionalHeaderSize = 20;
inline constexpr std::size_t kFileHeaderEnd = 24;
inline constexpr std::size_t kMostSections = 96;  // the loader's limit

// Relative to the optional header.
inline constexpr std::uint16_t kPe32 = 0x10B;
inline constexpr std::uint16_t kPe32Plus = 0x20B;
inline constexpr std::size_t kInitializedDataSize = 8;
inline constexpr std::size_t kSectionAlignment = 32;
inline constexpr std::size_t kFileAlignment = 36;
inline constexpr std::size_t kImageSize = 56;
inline constexpr std::size_t kHeadersSize = 60;
inline constexpr std::size_t kChecksum = 64;
inline constexpr std::size_t kDirectories32 = 96;
inline constexpr std::size_t kDirectories64 = 112;
inline constexpr std::uint32_t kLargestAlignment = 1U << 24;

inline constexpr std::size_t kDirectorySize = 8;
inline constexpr std::size_t kDirectoryAddress = 0;
inline constexpr std::size_t kDirectoryLength = 4;
inline constexpr std::size_t kMostDirectories = 16;
inline constexpr std::size_t kDirectoryResources = 2;
inline constexpr std::size_t kDirectorySignature = 4;
inline constexpr std::size_t kDirectoryRelocations = 5;
inline constexpr std::size_t kDirectoryDebug = 6;
inline constexpr std::size_t kSignatureAlignment = 8;

// Relative to a section header.
inline constexpr std::size_t kSectionHeaderSize = 40;
inline constexpr std::size_t kSectionVirtualSize = 8;
inline constexpr std::size_t kSectionAddress = 12;
inline constexpr std::size_t kSectionRawSize = 16;
inline constexpr std::size_t kSectionOffset = 20;
inline constexpr std::size_t kSectionCharacteristics = 36;
inline constexpr std::uint32_t kReadableData = 0x40000040;

// Relative to an entry of the debug directory.
inline constexpr std::size_t kDebugEntrySize = 28;
inline constexpr std::size_t kDebugOffset = 24;

}  // namespace tarn::tools
