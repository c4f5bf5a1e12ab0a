#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace tarn::tools {

using Sha256Digest = std::array<std::byte, 32>;

/// SHA-256 (FIPS 180-4) of data that arrives in parts. Hand-written, because no library that this
/// program contains has it, and the systems' own differ.
class Sha256 {
  public:
    void Add(std::span<const std::byte> bytes);
    void Add(std::string_view text);

    /// The digest of everything added. To be called once, at the end.
    Sha256Digest Finish();

  private:
    void AddBlock(std::span<const std::byte, 64> block);

    std::array<std::uint32_t, 8> state_ = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                           0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    std::array<std::byte, 64> pending_ = {};
    std::size_t pendingSize_ = 0;
    std::uint64_t size_ = 0;  // bytes
};

Sha256Digest Sha256Of(std::string_view text);

/// The digest of a file of any size. Throws Failure when it cannot be read.
Sha256Digest Sha256OfFile(const std::filesystem::path& file);

/// Lower-case hexadecimal digits.
std::string HexOf(std::span<const std::byte> bytes);

}  // namespace tarn::tools
