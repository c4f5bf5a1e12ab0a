#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/common/byte_io.h"

namespace tarn::tools {

/// The version information of an executable, which the shell shows as its details.
struct VersionInfo {
    using Number = std::array<std::uint16_t, 4>;

    Number fileVersion = {};
    Number productVersion = {};

    /// Texts in UTF-8 by name ("FileDescription"), in the order in which they are stored.
    std::vector<std::pair<std::string, std::string>> texts;

    std::string Text(std::string_view name) const;

    /// Sets a text; an empty one removes it.
    void SetText(std::string_view name, std::string_view text);
};

/// The four numbers of a version text: "2.1-beta3" is 2.1.3.0, as far as it has numbers. Numbers
/// above 65535 become that.
VersionInfo::Number VersionNumberOf(std::string_view text);

/// Reads a resource of type 16, of its text tables the first. Throws Failure when it is broken.
VersionInfo ReadVersionInfo(ByteSpan resource);

/// Writes it with one table of texts, in English (United States) and UTF-16.
Bytes WriteVersionInfo(const VersionInfo& info);

}  // namespace tarn::tools
