#include "tools/check/admitted_versions.h"

#include "runtime/runtime_version.h"
#include "settings/keys.h"
#include "tools/java/java_version.h"

namespace tarn::tools {
namespace {

bool Exists(const std::filesystem::path& path) {
    std::error_code ignored;
    return std::filesystem::exists(path, ignored);
}

// The newest measured version up to this one: options rarely change in between.
VersionSet NearestTo(int feature) {
    VersionSet nearest = 0;
    for (std::size_t at = 0; at < kMeasuredVersions.size(); ++at) {
        if (kMeasuredVersions[at] <= feature) nearest = 1U << at;
    }
    return nearest;
}

}  // namespace

std::optional<std::filesystem::path> ShippedRuntime(const CheckedSettings& settings) {
    if (!settings.checksFiles()) return std::nullopt;
    for (const std::filesystem::path& home : {settings.folder(), settings.folder() / "jre64"}) {
        if (Exists(home / "bin" / "java.dll")) return home;
    }
    return std::nullopt;
}

bool HasOwnRuntime(const CheckedSettings& settings) {
    return settings.Get(keys::kJavaRuntimeEnvironment, keys::kJrePath) ||
           ShippedRuntime(settings).has_value();
}

VersionSet AdmittedVersions(const CheckedSettings& settings) {
    if (const auto home = ShippedRuntime(settings)) {
        const int feature = JavaFeatureOf(ReadJavaVersion(*home));
        if (feature != 0) return NearestTo(feature);
    }
    const RuntimeVersion minimum =
        MinimumBound(settings.Get(keys::kJavaRuntimeEnvironment, keys::kMinimumVersion).text);
    const Setting written = settings.Get(keys::kJavaRuntimeEnvironment, keys::kMaximumVersion);
    // Without a maximum no registered runtime qualifies, and the user may choose one of any
    // version.
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
