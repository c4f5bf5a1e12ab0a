#include "tools/explain/setting_table.h"

#include "base/text.h"
#include "settings/keys.h"

namespace tarn::tools {
namespace {

using enum SettingForm;
using enum SettingReader;

constexpr SettingRow kRows[] = {
    {keys::kProductInformation, keys::kProductCode, MainFile, Text},
    {keys::kProductInformation, keys::kProductName, MainFile, Text},
    {keys::kApplication, keys::kApplicationType, Layered, Text},
    {keys::kApplication, keys::kOmitServiceName, Layered, Text},
    {keys::kApplication, keys::kSingleInstance, Layered, ExactlyYes},
    {keys::kApplication, keys::kFailureCheck, Layered, YesInAnyCase},
    {keys::kApplication, keys::kOverrideWorkingDir, Layered, YesInAnyCase},
    {keys::kApplication, keys::kPairProduct, Layered, Text},
    {keys::kApplication, keys::kPairReturnCode, Layered, YesInAnyCase},
    {keys::kApplication, keys::kEmbeddedJar, Layered, YesInAnyCase},
    {keys::kApplication, keys::kOutputFile, Layered, Text},
    {keys::kApplication, keys::kOutputAppend, Layered, ExactlyYes},
    {keys::kApplication, keys::kErrorFile, Layered, Text},
    {keys::kApplication, keys::kErrorAppend, Layered, ExactlyYes},
    {keys::kApplication, keys::kCmd, Layered, Text},
    {keys::kJavaRuntimeEnvironment, keys::kMinimumVersion, Layered, Text},
    {keys::kJavaRuntimeEnvironment, keys::kMaximumVersion, Layered, Text},
    {keys::kJavaRuntimeEnvironment, keys::kPreferredVersions, Layered, Text},
    {keys::kJavaRuntimeEnvironment, keys::kJrePath, PerUser, Text},
    {keys::kJavaRuntimeEnvironment, keys::kJvmType, Layered, Text},
    {keys::kJavaRuntimeEnvironment, keys::kJvmSource, Layered, Text},
    {keys::kJavaRuntimeEnvironment, keys::kVmProvider, Layered, Text},
    {keys::kJavaRuntimeEnvironment, keys::kMainClass, Layered, Text},
    {keys::kJavaRuntimeEnvironment, keys::kSystemPath, Layered, Text},
    {keys::kJavaRuntimeEnvironment, keys::kLibraryPath, Layered, Text},
    {keys::kJavaRuntimeEnvironment, keys::kVirtualMachineParameters, Layered, Text},
    {keys::kClassPath, keys::kClassPath, Layered, Text},
    {keys::kDisplay, keys::kSplashScreen, MainFile, Text},
    {keys::kDisplay, keys::kSplashScreenShadow, MainFile, ExactlyTrue},
    {keys::kDisplay, keys::kPreferNativeSplashScreen, MainFile, YesInAnyCase},
};

std::string_view OnOrOff(bool isOn) {
    return isOn ? "on" : "off";
}

}  // namespace

std::span<const SettingRow> SettingRows() {
    return kRows;
}

std::string_view MeaningOf(SettingForm form, const std::wstring& value) {
    switch (form) {
        case YesInAnyCase:
            return OnOrOff(EqualsIgnoringCase(value, L"Yes"));
        case ExactlyYes:
            return OnOrOff(value == L"yes");
        case ExactlyTrue:
            return OnOrOff(value == L"true");
        case Text:
            break;
    }
    return {};
}

}  // namespace tarn::tools
