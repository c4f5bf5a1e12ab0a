#include "tools/common/sha256.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <vector>

#include "tools/common/failure.h"
#include "tools/common/system.h"
#include "tools/common/whole_file.h"

namespace tarn::tools {
namespace {

// The first 32 bits of the fractional parts of the cube roots of the first 64 primes.
constexpr std::array<std::uint32_t, 64> kRoundConstants = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

std::uint32_t BigEndian(std::span<const std::byte> bytes) {
    std::uint32_t value = 0;
    for (const std::byte byte : bytes.first(4)) {
        value = value << 8 | std::to_integer<std::uint32_t>(byte);
    }
    return value;
}

}  // namespace

void Sha256::AddBlock(std::span<const std::byte, 64> block) {
    std::array<std::uint32_t, 64> words = {};
    for (std::size_t at = 0; at < 16; ++at) words[at] = BigEndian(block.subspan(at * 4));
    for (std::size_t at = 16; at < 64; ++at) {
        const std::uint32_t early = words[at - 15];
        const std::uint32_t late = words[at - 2];
        words[at] = words[at - 16] + words[at - 7] +
                    (std::rotr(early, 7) ^ std::rotr(early, 18) ^ early >> 3) +
                    (std::rotr(late, 17) ^ std::rotr(late, 19) ^ late >> 10);
    }
    auto [a, b, c, d, e, f, g, h] = state_;
    for (std::size_t at = 0; at < 64; ++at) {
        const std::uint32_t first = h + (std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25)) +
                                    ((e & f) ^ (~e & g)) + kRoundConstants[at] + words[at];
        const std::uint32_t second =
            (std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22)) + ((a & b) ^ (a & c) ^ (b & c));
        h = g;
        g = f;
        f = e;
        e = d + first;
        d = c;
        c = b;
        b = a;
        a = first + second;
    }
    const std::array<std::uint32_t, 8> added = {a, b, c, d, e, f, g, h};
    for (std::size_t at = 0; at < state_.size(); ++at) state_[at] += added[at];
}

void Sha256::Add(std::span<const std::byte> bytes) {
    size_ += bytes.size();
    while (!bytes.empty()) {
        if (pendingSize_ == 0 && bytes.size() >= pending_.size()) {
            AddBlock(bytes.first<64>());
            bytes = bytes.subspan(64);
            continue;
        }
        const std::size_t taken = std::min(bytes.size(), pending_.size() - pendingSize_);
        std::memcpy(pending_.data() + pendingSize_, bytes.data(), taken);
        pendingSize_ += taken;
        bytes = bytes.subspan(taken);
        if (pendingSize_ < pending_.size()) return;
        AddBlock(pending_);
        pendingSize_ = 0;
    }
}

void Sha256::Add(std::string_view text) {
    Add(AsBytes(text));
}

Sha256Digest Sha256::Finish() {
    const std::uint64_t bits = size_ * 8;
    constexpr std::byte kZero{0};
    constexpr std::byte kMark{0x80};
    Add(std::span(&kMark, 1));
    while (pendingSize_ != 56) Add(std::span(&kZero, 1));
    std::array<std::byte, 8> length = {};
    for (std::size_t at = 0; at < 8; ++at) {
        length[at] = static_cast<std::byte>(bits >> (56 - 8 * at) & 0xff);
    }
    Add(length);
    Sha256Digest digest = {};
    for (std::size_t at = 0; at < digest.size(); ++at) {
        digest[at] = static_cast<std::byte>(state_[at / 4] >> (24 - 8 * (at % 4)) & 0xff);
    }
    return digest;
}

Sha256Digest Sha256Of(std::string_view text) {
    Sha256 sha256;
    sha256.Add(text);
    return sha256.Finish();
}

Sha256Digest Sha256OfFile(const std::filesystem::path& file) {
    const UniqueStream stream = OpenRegularFile(file);
    if (!stream) throw Failure(file, std::strerror(errno));
    Sha256 sha256;
    std::vector<std::byte> buffer(std::size_t{1} << 16);
    while (const std::size_t size = std::fread(buffer.data(), 1, buffer.size(), stream.get())) {
        sha256.Add(std::span(buffer).first(size));
    }
    if (std::ferror(stream.get()) != 0) throw Failure(file, std::strerror(errno));
    return sha256.Finish();
}

std::string HexOf(std::span<const std::byte> bytes) {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const std::byte byte : bytes) {
        text += kDigits[std::to_integer<unsigned>(byte) >> 4];
        text += kDigits[std::to_integer<unsigned>(byte) & 15];
    }
    return text;
}

}  // namespace tarn::tools
