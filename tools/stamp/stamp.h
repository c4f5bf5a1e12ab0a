#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tools/common/byte_io.h"
#include "tools/image/icon.h"

namespace tarn::tools {

/// What an executable gets. What is left out stays as it is.
struct StampChanges {
    std::vector<IconPicture> icon;

    /// Version of the file and the product: its numbers and its text.
    std::string version;

    /// Texts of the version information by name; an empty one is removed.
    std::vector<std::pair<std::string, std::string>> versionTexts;

    /// Entries of the string table.
    std::vector<std::pair<std::uint16_t, std::string>> strings;

    /// Built-in settings, as EmbeddedSettingsText gives them; an empty text removes them.
    std::optional<std::string> settings;

    /// Whole XML text of the manifest.
    std::optional<Bytes> manifest;

    /// A jar to append, in place of one that is appended already.
    std::optional<Bytes> jar;

    /// Goes on with a signed file, without its signature.
    bool dropsSignature = false;
};

/// The executable with these changes: the same bytes from the same input on every machine. Throws
/// Failure, without the file's name, when it is no executable, is signed or is broken. Adds to
/// `warnings` what is probably not meant.
Bytes Stamp(ByteSpan executable, const StampChanges& changes, std::vector<std::string>& warnings);

}  // namespace tarn::tools
