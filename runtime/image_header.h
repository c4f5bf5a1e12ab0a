#pragma once

#include <cstddef>
#include <span>

namespace tarn {

/// Whether the bytes of a file begin like an executable image and hold its headers up to and with
/// the machine field. Says nothing about what stands there; it only makes a file of any bytes safe
/// to be looked at through those headers.
bool HasPeHeaders(std::span<const std::byte> file);

}  // namespace tarn
