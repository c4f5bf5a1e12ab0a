#pragma once

#include <cstddef>
#include <string>

namespace tarn {

/// The first size, in characters, of a buffer that grows until a text fits.
inline constexpr std::size_t kFirstBufferSize = 256;

/// Reads a text of unknown length. `read(buffer, size)` fills at most `size` characters and returns
/// how many it wrote. A result of `size - spare` or more may have been cut, so the buffer is
/// doubled and the text read again until it is whole.
template <typename Read>
std::wstring ReadGrowing(std::size_t spare, Read read) {
    std::wstring buffer;
    for (std::size_t size = kFirstBufferSize;; size *= 2) {
        buffer.resize(size);
        const std::size_t length = read(buffer.data(), size);
        if (length + spare < size) {
            buffer.resize(length);
            return buffer;
        }
    }
}

}  // namespace tarn
