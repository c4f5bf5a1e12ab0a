#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tools/check/checked_settings.h"

namespace tarn::tools {

/// Checks the settings of a result as `tarn check --strict` does. Throws Failure with every error
/// and warning except those whose id is in `allowed`. `file` names the settings in the message, and
/// `folder` the result instead of the unfinished folder.
void CheckResult(const CheckedSettings& settings, const std::string& file,
                 const std::filesystem::path& folder, const std::vector<std::string>& allowed);

/// The settings that are built into a single file, which is in `folder`.
CheckedSettings EmbeddedSettingsForCheck(const std::string& text,
                                         const std::filesystem::path& executable);

}  // namespace tarn::tools
