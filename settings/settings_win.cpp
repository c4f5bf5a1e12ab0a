#include "base/paths.h"
#include "base/text.h"
#include "resources/ids.h"
#include "settings/keys.h"
#include "settings/layered_settings.h"
#include "settings/settings.h"
#include "settings/settings_paths.h"
#include "ui/messages/error_reporter.h"

namespace tarn {
namespace {

std::wstring ReadJrePath(const LayeredSettings& layered, const Settings& settings,
                         const std::wstring& programPath) {
    std::wstring perUser;
    if (UsesPerUserFile(settings, programPath, perUser)) {
        return IniFile(std::move(perUser)).GetValue(keys::kJavaRuntimeEnvironment, keys::kJrePath);
    }
    return layered.GetValue(keys::kJavaRuntimeEnvironment, keys::kJrePath);
}

}  // namespace

bool UsesPerUserFile(const Settings& settings, const std::wstring& programPath,
                     std::wstring& perUser) {
    // A service does not run as the user who starts the application.
    if (settings.serviceMode) return false;
    perUser = PerUserSettingsPath(settings, programPath, false);
    return FileExists(perUser);
}

bool ReadSettings(const ErrorReporter& errors, Settings& settings) {
    const std::optional<std::wstring> programPath = ModulePath();
    if (!programPath) {
        errors.ShowWindowsFailure(IDS_NO_MODULE_PATH);
        return false;
    }
    const std::optional<std::wstring> mainPath = SettingsPathOf(*programPath);
    if (!mainPath) return false;
    const LayeredSettings& layered = settings.reader.emplace(*mainPath);
    // One text for all values: each further one would take some 20 bytes to be destroyed.
    std::wstring value;
    const auto read = [&](const wchar_t* section, const wchar_t* key) -> const std::wstring& {
        const std::wstring result = layered.GetValue(section, key);
        return value = result;
    };
    const auto java = [&](const wchar_t* key) -> const std::wstring& {
        return read(keys::kJavaRuntimeEnvironment, key);
    };
    RuntimeSearchPolicy& policy = settings.policy;

    settings.productCode = layered.GetFileValue(keys::kProductInformation, keys::kProductCode);
    settings.productName = layered.GetFileValue(keys::kProductInformation, keys::kProductName);
    policy.minimum = MinimumBound(java(keys::kMinimumVersion));
    policy.maximum = MaximumBound(java(keys::kMaximumVersion));
    settings.serviceMode = read(keys::kApplication, keys::kApplicationType) == L"service";
    if (settings.serviceMode) {
        settings.omitServiceName = !read(keys::kApplication, keys::kOmitServiceName).empty();
    }
    policy.preferredVersions = Split(java(keys::kPreferredVersions), L';');
    policy.jrePath = ReadJrePath(layered, settings, *programPath);
    policy.jvmType = JvmTypeOf(java(keys::kJvmType));
    ApplyJvmSource(java(keys::kJvmSource), policy);
    ApplyVmProvider(java(keys::kVmProvider), policy);

    const std::wstring& mainClass = java(keys::kMainClass);
    if (mainClass.empty()) {
        errors.ShowErrorMessage(IDS_NO_MAIN_CLASS);
        return false;
    }
    settings.mainClass = ReplaceAll(mainClass, L'.', L'/');

    settings.failureCheck = IsYes(read(keys::kApplication, keys::kFailureCheck));
    settings.overrideWorkingDir = IsYes(read(keys::kApplication, keys::kOverrideWorkingDir));
    settings.systemPath = java(keys::kSystemPath);
    settings.libraryPath = java(keys::kLibraryPath);
    settings.pairProduct = read(keys::kApplication, keys::kPairProduct);
    settings.pairReturnCode =
        !settings.pairProduct.empty() && IsYes(read(keys::kApplication, keys::kPairReturnCode));
    return true;
}

std::wstring ReadFurtherSources(const Settings& settings) {
    if (!settings.reader) return {};
    return settings.reader->GetValue(keys::kJavaRuntimeEnvironment, keys::kFurtherSources);
}

}  // namespace tarn
