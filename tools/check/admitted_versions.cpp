#include "tools/check/admitted_versions.h"

#include <fstream>
#include <optional>

#include "runtime/runtime_version.h"
#include "settings/keys.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

bool IsThere(const std::filesystem::path& path) {
    std::error_code ignored;
    return std::filesystem::exists(path, ignored);
}

// The home of the runtime beside the launcher, where the launcher looks for one.
std::optional<std::filesystem::path> ShippedRuntime(const CheckedSettings& settings) {
    if (!settings.looksAtDisk()) return std::nullopt;
    for (const std::filesystem::path& home : {settings.folder(), settings.folder() / "jre64"}) {
        if (IsThere(home / "bin" / "java.dll")) return home;
    }
    return std::nullopt;
}

// From the file "release" that runtimes have in their home: JAVA_VERSION="21.0.8".
std::optional<RuntimeVersion> VersionOfRuntime(const std::filesystem::path& home) {
    std::ifstream release(home / "release");
    std::string line;
    while (std::getline(release, line)) {
        if (!line.starts_with("JAVA_VERSION=")) continue;
        RuntimeVersion version;
        if (ParseVersion(WideOf(line), 0, version)) return version;
    }
    return std::nullopt;
}

// The newest of the measured versions that is not newer: options seldom go or come in between.
VersionSet NearestTo(const RuntimeVersion& version) {
    VersionSet nearest = 0;
    for (std::size_t at = 0; at < kMeasuredVersions.size(); ++at) {
        if (kMeasuredVersions[at] <= version.parts[0]) nearest = 1U << at;
    }
    return nearest;
}

}  // namespace

bool HasOwnRuntime(const CheckedSettings& settings) {
    return settings.Get(keys::kJavaRuntimeEnvironment, keys::kJrePath) ||
           ShippedRuntime(settings).has_value();
}

VersionSet AdmittedVersions(const CheckedSettings& settings) {
    if (const auto home = ShippedRuntime(settings)) {
        if (const auto version = VersionOfRuntime(*home)) return NearestTo(*version);
    }
    const RuntimeVersion minimum =
        MinimumBound(settings.Get(keys::kJavaRuntimeEnvironment, keys::kMinimumVersion).text);
    const Setting written = settings.Get(keys::kJavaRuntimeEnvironment, keys::kMaximumVersion);
    // Without a maximum nothing registered fits: then a runtime of any version may be chosen by
    // hand.
    const RuntimeVersion maximum =
        MaximumBound(IsBlank(MaximumBound(written.text)) ? L"any" : written.text);
    VersionSet admitted = 0;
    for (std::size_t at = 0; at < kMeasuredVersions.size(); ++at) {
        const RuntimeVersion first{{kMeasuredVersions[at], 0, 0, 0}, 4};
        const RuntimeVersion last{{kMeasuredVersions[at], kOpenPart, kOpenPart, kOpenPart}, 4};
        if (CompareVersions(last, minimum) >= 0 && CompareVersions(first, maximum) <= 0) {
            admitted |= 1U << at;
        }
    }
    return admitted;
}

std::string NameVersions(VersionSet versions) {
    std::string names;
    for (std::size_t at = 0; at < kMeasuredVersions.size(); ++at) {
        if ((versions >> at & 1U) == 0) continue;
        if (!names.empty()) names += ", ";
        names += std::to_string(kMeasuredVersions[at]);
    }
    return names;
}

}  // namespace tarn::tools
