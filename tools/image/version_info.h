#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/common/byte_io.h"

namespace tarn::tools {

/// The version information of an executable (VS_VERSIONINFO). Hand-written, because the API that
/// reads it exists on Windows only, and none that writes it exists at all: resource compilers do
/// that from a script, which is no library.
struct VersionInfo {
    using Number = std::array<std::uint16_t, 4>;

    Number fileVersion = {};
    Number productVersion = {};

    /// Texts in UTF-8 by name ("FileDescription"), in stored order.
    std::vector<std::pair<std::string, std::string>> texts;

    std::string Text(std::string_view name) const;

    /// Sets a text; an empty one removes it.
    void SetText(std::string_view name, std::string_view text);
};

/// The first four numbers of a version text: 2.1.3.0 for "2.1-beta3". Numbers above 65535 become
/// 65535.
VersionInfo::Number VersionNumberOf(std::string_view text);

/// Reads a resource of type RT_VERSION with the first of its string tables. Throws Failure when it
/// is corrupt.
VersionInfo ReadVersionInfo(ByteSpan resource);

/// Writes the resource with one string table, English (United States) and UTF-16.
Bytes WriteVersionInfo(const VersionInfo& info);

}  // namespace tarn::tools
