// A file with any contents may have the name of a runtime's library.

#include <cstring>
#include <span>
#include <vector>

#include "fuzz/fuzz_input.h"
#include "runtime/pe_header.h"

namespace {

using tarn::fuzz::Require;

bool NaiveHolds(const std::vector<std::byte>& file) {
    if (file.size() < 64 || std::memcmp(file.data(), "MZ", 2) != 0) return false;
    std::int32_t headers = 0;
    std::memcpy(&headers, file.data() + 60, sizeof headers);
    return headers >= 0 && static_cast<std::uint64_t>(headers) + 6 <= file.size();
}

}  // namespace

// The offset of the PE headers, how many bytes follow it, and the file's first bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // A heap block of its own, so that a read beyond it is detected.
    std::vector<std::byte> file(size);
    if (size != 0) std::memcpy(file.data(), data, size);
    Require(tarn::HasPeHeaders(file) == NaiveHolds(file));

    tarn::fuzz::FuzzInput input(data, size);
    const auto headers = input.TakeNumber<std::uint32_t>();
    file.resize(64 + input.TakeNumber<std::uint8_t>());
    file.shrink_to_fit();
    file[0] = std::byte{'M'};
    file[1] = std::byte{'Z'};
    for (const std::uint32_t offset : {headers, headers % 512}) {
        std::memcpy(file.data() + 60, &offset, sizeof offset);
        Require(tarn::HasPeHeaders(file) == NaiveHolds(file));
    }
    return 0;
}
