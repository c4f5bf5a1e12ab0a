#pragma once

#include <string>
#include <vector>

#include "tools/settings/settings_document.h"

namespace tarn::tools {

/// Whether the launcher reads this section from settings that are built into an executable.
bool IsReadWhenBuiltIn(const std::wstring& section);

/// A settings file as the UTF-8 text that is built into an executable. The launcher reads that text
/// literally (nothing is trimmed, names are case-sensitive, the last of two values wins), so the
/// result is normalised: no comments, no quotes or white space around values, names spelled as the
/// launcher spells them, of several values the one that Windows would read. Adds a sentence to
/// `warnings` for each section that has no effect.
std::string EmbeddedSettingsText(const SettingsDocument& settings,
                                 std::vector<std::string>& warnings);

}  // namespace tarn::tools
