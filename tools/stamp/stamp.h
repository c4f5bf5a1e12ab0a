#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tools/common/byte_io.h"
#include "tools/image/icon.h"
#include "tools/stamp/application_manifest.h"

namespace tarn::tools {

/// The changes to an executable. Members that are not set leave it unchanged.
struct StampChanges {
    std::vector<IconPicture> icon;

    /// The version of file and product, as a text; its numbers are derived from it.
    std::string version;

    /// Texts of the version information by name; an empty text removes the entry.
    std::vector<std::pair<std::string, std::string>> versionTexts;

    /// Entries of the string table by id.
    std::vector<std::pair<std::uint16_t, std::string>> strings;

    /// Built-in settings from `EmbeddedSettingsText`; an empty text removes them.
    std::optional<std::string> settings;

    /// The complete manifest (XML), which replaces the present one.
    std::optional<Bytes> manifest;

    /// Changes to that manifest, or to the present one.
    ManifestChanges manifestChanges;

    /// A jar to append; replaces an appended one.
    std::optional<Bytes> jar;

    /// Removes the signature of a signed executable instead of failing.
    bool dropsSignature = false;
};

/// Returns the changed executable: the same bytes for the same input on every machine. Throws
/// Failure, without the file's name, when it is not an executable, is signed or is corrupt. Adds
/// probable mistakes to `warnings`.
Bytes Stamp(ByteSpan executable, const StampChanges& changes, std::vector<std::string>& warnings);

}  // namespace tarn::tools
