#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/common/byte_io.h"

namespace tarn::tools {

/// A settings file's text in UTF-8: from UTF-16 with a byte-order mark, from UTF-8, or else from
/// Windows-1252, for the system's own code page is not known here.
std::string DecodeSettingsFile(ByteSpan file);

/// A settings file as the text that is built into an executable. The launcher takes that text more
/// literally than a file (nothing is trimmed, letter case counts, the last of two values wins), so
/// what a file's lines mean is written out: no comments, no blanks and quotes around values, keys
/// as the launcher spells them, the first of two values. Adds a sentence to `warnings` for each key
/// that has no effect there.
std::string EmbeddedSettingsText(std::string_view settings, std::vector<std::string>& warnings);

}  // namespace tarn::tools
