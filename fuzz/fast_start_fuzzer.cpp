// Jars, of which the launcher reads the end, and a runtime's file `release` can be any files.

#include <algorithm>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/fuzz_input.h"
#include "jvm/fast_start.h"
#include "runtime/runtime_version.h"

namespace {

using tarn::fuzz::FuzzInput;
using tarn::fuzz::Require;

constexpr std::string_view kSignature = "PK\x05\x06";
constexpr std::size_t kEndSize = 22;
constexpr std::size_t kSizeOffset = 12;
constexpr std::size_t kLargeRecordsSize = 76;
constexpr std::uint32_t kLargest = 1U << 30;

std::span<const std::byte> BytesOf(const std::string& text) {
    return std::as_bytes(std::span(text));
}

std::string TakeString(FuzzInput& input, std::size_t longest) {
    std::string text(input.TakeNumber<std::uint8_t>() % (longest + 1), '\0');
    for (char& c : text) c = static_cast<char>(input.TakeNumber<std::uint8_t>());
    return text;
}

// The last end record is that whose directory counts.
std::uint32_t NaiveDistance(const std::string& file) {
    if (file.size() < kEndSize) return 0;
    const std::size_t at = file.rfind(kSignature, file.size() - kEndSize);
    if (at == std::string::npos) return 0;
    std::uint32_t size = 0;
    std::memcpy(&size, file.data() + at + kSizeOffset, sizeof size);
    const std::size_t distance = file.size() - at + kLargeRecordsSize + size;
    return size > kLargest ? 0 : static_cast<std::uint32_t>(distance);
}

// Whether the first number of a version that is not zero is at least 21.
bool NaiveWrites(std::string_view version) {
    const std::string_view digits = "0123456789";
    while (!version.empty()) {
        version.remove_prefix(std::min(version.find_first_of(digits), version.size()));
        const std::size_t length = std::min(version.find_first_not_of(digits), version.size());
        std::string_view number = version.substr(0, length);
        version.remove_prefix(length);
        number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
        if (number.empty()) continue;
        return number.size() > 2 || (number.size() == 2 && number >= "21");
    }
    return false;
}

void CheckVersion(const std::string& release) {
    Require(tarn::WritesArchives(release) == NaiveWrites(tarn::JavaVersionIn(release)));
    Require(tarn::WritesArchives("JAVA_VERSION=" + release) ==
            NaiveWrites(release.substr(0, release.find('\n'))));
}

// The directory of a packed file is found, with and without the records of large files, and with
// data after the file.
void CheckPackedFile(FuzzInput input) {
    const std::string entries = TakeString(input, 30);
    std::string end = TakeString(input, 60);
    const auto size = static_cast<std::uint32_t>(end.size());
    if (input.TakeNumber<std::uint8_t>() % 2 != 0) end.append(kLargeRecordsSize, 'r');
    end.append(kSignature);
    end.append(kEndSize - kSignature.size(), '\0');
    std::memcpy(end.data() + end.size() - kEndSize + kSizeOffset, &size, sizeof size);
    // Without another signature, which the first character of this one begins.
    for (const char c : TakeString(input, 20)) end += c == 'P' ? 'p' : c;
    const std::uint32_t distance = tarn::ZipDirectoryDistance(BytesOf(entries + end));
    Require(distance >= end.size() && distance <= end.size() + kLargeRecordsSize);
}

// A change of one bit changes the fingerprint, wherever it is.
void CheckFingerprint(FuzzInput input) {
    const auto bit = input.TakeNumber<std::uint16_t>();
    std::vector<std::string> pieces;
    for (int count = input.TakeNumber<std::uint8_t>() % 4 + 1; count > 0; --count)
        pieces.push_back(TakeString(input, 40));
    const auto valueOf = [](const std::vector<std::string>& texts) {
        tarn::Fingerprint fingerprint;
        for (const std::string& text : texts) fingerprint.Add(BytesOf(text));
        return fingerprint.value();
    };
    std::vector<std::string> changed = pieces;
    std::string& piece = changed[bit % changed.size()];
    Require(valueOf(changed) == valueOf(pieces));
    if (piece.empty()) return;
    char& byte = piece[bit / 8 % piece.size()];
    byte = static_cast<char>(byte ^ 1 << bit % 8);
    Require(valueOf(changed) != valueOf(pieces));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // A heap block of its own, so that a read beyond it is detected.
    std::string text(reinterpret_cast<const char*>(data), size);
    text.shrink_to_fit();
    Require(tarn::ZipDirectoryDistance(BytesOf(text)) == NaiveDistance(text));
    CheckVersion(text);
    CheckPackedFile(FuzzInput(data, size));
    CheckFingerprint(FuzzInput(data, size));
    return 0;
}
