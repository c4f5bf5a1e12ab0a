#pragma once

#include <string>

namespace tarn {

/// The settings text that is built into the executable: the resource "SETTINGS" of type RT_RCDATA
/// (`FindResourceW`), UTF-8 with or without a byte-order mark. Empty when there is none.
std::wstring LoadEmbeddedText();

}  // namespace tarn
