#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace tarn::tools {

/// The format of a picture by its first bytes: "PNG", "GIF", "JPEG", "BMP", "TIFF", "icon" or
/// "metafile", all of which Windows' decoder reads; empty for anything else.
std::string_view PictureFormat(std::span<const std::byte> content);

/// Whether the Java runtime's own splash library shows that format.
bool IsForNativeSplash(std::string_view format);

}  // namespace tarn::tools
