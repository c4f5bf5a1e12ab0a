#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>

#include "tools/check/checked_settings.h"

namespace tarn::tools {

/// The Java versions whose JVM options are known (vm_flags.h), oldest first.
inline constexpr std::array<int, 4> kMeasuredVersions = {11, 17, 21, 25};

/// A set of these versions; bit 0 is the first one.
using VersionSet = unsigned;

/// The home of the runtime shipped beside the settings file; none without `checksFiles`.
std::optional<std::filesystem::path> ShippedRuntime(const CheckedSettings& settings);

/// Whether a runtime is configured, or shipped beside the settings file, so that none needs to be
/// registered.
bool HasOwnRuntime(const CheckedSettings& settings);

/// The versions that a launch may use: the shipped runtime's, or all within the bounds.
VersionSet AdmittedVersions(const CheckedSettings& settings);

/// "11, 17".
std::string NameVersions(VersionSet versions);

}  // namespace tarn::tools
