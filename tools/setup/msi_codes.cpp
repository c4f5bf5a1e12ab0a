#include "tools/setup/msi_codes.h"

#include "tools/common/failure.h"
#include "tools/common/sha256.h"

namespace tarn::tools {
namespace {

constexpr std::uint16_t kHighestMajor = 255;
constexpr std::uint16_t kHighestMinor = 255;
constexpr std::uint16_t kHighestBuild = 65535;

std::string Joined(std::uint16_t major, std::uint16_t minor, std::uint16_t build) {
    return std::to_string(major) + '.' + std::to_string(minor) + '.' + std::to_string(build);
}

}  // namespace

std::string GuidOf(std::string_view purpose, std::string_view text) {
    Sha256 sha256;
    sha256.Add(purpose);
    sha256.Add(std::string_view("\0", 1));
    sha256.Add(text);
    Sha256Digest digest = sha256.Finish();
    digest[6] = (digest[6] & std::byte{0x0F}) | std::byte{0x80};  // version
    digest[8] = (digest[8] & std::byte{0x3F}) | std::byte{0x80};  // variant
    std::string guid = HexOf(std::span(digest).first(16));
    for (char& digit : guid) {
        if (digit >= 'a') digit = static_cast<char>(digit - 'a' + 'A');
    }
    for (const std::size_t at : {20U, 16U, 12U, 8U}) guid.insert(at, 1, '-');
    return '{' + guid + '}';
}

std::string MsiVersionOf(const std::array<std::uint16_t, 4>& number) {
    const auto [major, minor, build, ignored] = number;
    if (major > kHighestMajor || minor > kHighestMinor) {
        throw Failure("the version " + Joined(major, minor, build) +
                      " is not possible with --msi: Windows Installer takes numbers up to "
                      "255.255.65535; specify another one with --version");
    }
    return Joined(major, minor, build);
}

std::string MsiVersionAfter(const std::array<std::uint16_t, 4>& number) {
    auto [major, minor, build, ignored] = number;
    if (build < kHighestBuild) return Joined(major, minor, static_cast<std::uint16_t>(build + 1));
    if (minor < kHighestMinor) return Joined(major, static_cast<std::uint16_t>(minor + 1), 0);
    if (major < kHighestMajor) return Joined(static_cast<std::uint16_t>(major + 1), 0, 0);
    return {};
}

}  // namespace tarn::tools
