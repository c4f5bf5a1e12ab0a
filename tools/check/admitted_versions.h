#pragma once

#include <array>
#include <string>

#include "tools/check/checked_settings.h"

namespace tarn::tools {

/// The Java versions whose JVM options are known (see vm_flags.h), oldest first.
inline constexpr std::array<int, 4> kMeasuredVersions = {11, 17, 21, 25};

/// Some of those versions: bit 0 is the first one.
using VersionSet = unsigned;

/// Whether the settings need no registered runtime: one is configured, or shipped beside the file.
bool HasOwnRuntime(const CheckedSettings& settings);

/// The versions on which the application may come to run: that of the runtime shipped with it, or
/// those within the bounds.
VersionSet AdmittedVersions(const CheckedSettings& settings);

/// "11, 17".
std::string NameVersions(VersionSet versions);

}  // namespace tarn::tools
