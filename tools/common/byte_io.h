#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "tools/common/whole_file.h"

namespace tarn::tools {

using ByteSpan = std::span<const std::byte>;

/// Reads little-endian numbers at offsets taken from untrusted data. Access out of bounds throws a
/// Failure without the file's name, which the caller knows.
class ByteReader {
  public:
    explicit ByteReader(ByteSpan content) : content_(content) {}

    std::size_t Size() const { return content_.size(); }
    std::uint8_t U8(std::size_t at) const { return static_cast<std::uint8_t>(Number(at, 1)); }
    std::uint16_t U16(std::size_t at) const { return static_cast<std::uint16_t>(Number(at, 2)); }
    std::uint32_t U32(std::size_t at) const { return Number(at, 4); }
    ByteSpan Part(std::size_t at, std::size_t size) const;

    /// UTF-16 text of `length` units.
    std::u16string Text(std::size_t at, std::size_t length) const;

  private:
    std::uint32_t Number(std::size_t at, std::size_t bytes) const;

    ByteSpan content_;
};

/// Appends little-endian numbers and bytes.
class ByteWriter {
  public:
    std::size_t Size() const { return content_.size(); }
    void U8(std::uint32_t value) { Number(value, 1); }
    void U16(std::uint32_t value) { Number(value, 2); }
    void U32(std::uint32_t value) { Number(value, 4); }
    void Put(ByteSpan bytes) { content_.insert(content_.end(), bytes.begin(), bytes.end()); }
    void Text(std::u16string_view text);

    /// Appends zeros up to the next multiple of `step`.
    void Align(std::size_t step);

    /// Overwrites a number written before.
    void SetU16(std::size_t at, std::uint32_t value);
    void SetU32(std::size_t at, std::uint32_t value);

    Bytes Take() { return std::move(content_); }

  private:
    void Number(std::uint32_t value, std::size_t bytes);

    Bytes content_;
};

/// Overwrites a number in existing bytes; the offset must be valid.
void StoreU16(Bytes& content, std::size_t at, std::uint32_t value);
void StoreU32(Bytes& content, std::size_t at, std::uint32_t value);

/// The next multiple of `step`, which is not 0.
constexpr std::uint64_t AlignedUp(std::uint64_t value, std::uint64_t step) {
    return (value + step - 1) / step * step;
}

}  // namespace tarn::tools
