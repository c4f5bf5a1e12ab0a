#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace tarn::tools {

/// The format of a picture, recognised by its first bytes: "PNG", "GIF", "JPEG", "BMP", "TIFF",
/// "icon" or "metafile", all of which Windows decodes; empty for anything else.
std::string_view PictureFormat(std::span<const std::byte> content);

/// Whether the Java runtime's own splash library decodes that format.
bool IsForNativeSplash(std::string_view format);

/// The file name extension of a format that the native splash decodes: ".png", ".gif", ".jpg".
std::string_view ExtensionOf(std::string_view format);

}  // namespace tarn::tools
