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

}  // namespace

bool HasPeHeaders(std::span<const std::byte> file) {
    if (file.size() < kDosHeaderSize) return false;
    if (ByteAt(file, 0) != 'M' || ByteAt(file, 1) != 'Z') return false;
    // Little-endian. Offsets from 2 GiB are negative: the field is a signed one.
    const std::uint32_t headers =
        ByteAt(file, kLfanewOffset) | ByteAt(file, kLfanewOffset + 1) << 8 |
        ByteAt(file, kLfanewOffset + 2) << 16 | ByteAt(file, kLfanewOffset + 3) << 24;
    if (headers > INT32_MAX) return false;
    return headers <= file.size() - kUpToMachine;
}

}  // namespace tarn
