#include "runtime/pe_header.h"

#include <cstdint>

namespace tarn {

namespace {

// DOS header: `e_magic` ... `e_lfanew`, the 32-bit offset of the PE headers.
constexpr std::size_t kDosHeaderSize = 64;
constexpr std::size_t kLfanewOffset = 60;
// PE headers: the signature "PE\0\0" and the 16-bit machine.
constexpr std::size_t kUpToMachine = 6;

std::uint32_t ByteAt(std::span<const std::byte> file, std::size_t index) {
    return std::to_integer<std::uint32_t>(file[index]);
}

/// Returns the offset of the PE headers. Little-endian.
std::uint32_t HeadersOffset(std::span<const std::byte> file) {
    return ByteAt(file, kLfanewOffset) | ByteAt(file, kLfanewOffset + 1) << 8 |
           ByteAt(file, kLfanewOffset + 2) << 16 | ByteAt(file, kLfanewOffset + 3) << 24;
}

}  // namespace

bool HasPeHeaders(std::span<const std::byte> file) {
    if (file.size() < kDosHeaderSize) return false;
    if (ByteAt(file, 0) != 'M' || ByteAt(file, 1) != 'Z') return false;
    const std::uint32_t headers = HeadersOffset(file);
    // Offsets from 2 GiB are negative: the field is a signed one.
    if (headers > INT32_MAX) return false;
    return headers <= file.size() - kUpToMachine;
}

std::uint16_t MachineIn(std::span<const std::byte> file) {
    if (!HasPeHeaders(file)) return 0;
    const std::span<const std::byte> headers = file.subspan(HeadersOffset(file));
    if (ByteAt(headers, 0) != 'P' || ByteAt(headers, 1) != 'E') return 0;
    return static_cast<std::uint16_t>(ByteAt(headers, kUpToMachine - 2) |
                                      ByteAt(headers, kUpToMachine - 1) << 8);
}

}  // namespace tarn
