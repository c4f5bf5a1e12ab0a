#include "tools/settings/known_keys.h"

#include <algorithm>

#include "base/text.h"
#include "settings/keys.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

constexpr std::wstring_view kTypes[] = {L"service"};
constexpr std::wstring_view kJvmTypes[] = {L"server", L"favor_server"};
constexpr std::wstring_view kSources[] = {L"favor_JRE", L"favor_JDK", L"only_JRE", L"only_JDK"};
constexpr std::wstring_view kProviders[] = {L"jrockit",       L"ibm",       L"favor_sun",
                                            L"favor_jrockit", L"favor_ibm", L"any"};

constexpr bool kLayered = true;
constexpr bool kFileOnly = false;

constexpr KnownKey kKeys[] = {
    {keys::kProductInformation, keys::kProductName, Form::kText, kFileOnly, {}},
    {keys::kProductInformation, keys::kProductCode, Form::kText, kFileOnly, {}},
    {keys::kApplication, keys::kApplicationType, Form::kWord, kLayered, kTypes},
    {keys::kApplication, keys::kOmitServiceName, Form::kText, kLayered, {}},
    {keys::kApplication, keys::kSingleInstance, Form::kExactlyYes, kLayered, {}},
    {keys::kApplication, keys::kFailureCheck, Form::kYes, kLayered, {}},
    {keys::kApplication, keys::kOverrideWorkingDir, Form::kYes, kLayered, {}},
    {keys::kApplication, keys::kPairProduct, Form::kPath, kLayered, {}},
    {keys::kApplication, keys::kPairReturnCode, Form::kYes, kLayered, {}},
    {keys::kApplication, keys::kEmbeddedJar, Form::kYes, kLayered, {}},
    {keys::kApplication, keys::kOutputFile, Form::kOutputFile, kLayered, {}},
    {keys::kApplication, keys::kOutputAppend, Form::kExactlyYes, kLayered, {}},
    {keys::kApplication, keys::kErrorFile, Form::kOutputFile, kLayered, {}},
    {keys::kApplication, keys::kErrorAppend, Form::kExactlyYes, kLayered, {}},
    {keys::kApplication, keys::kCmd, Form::kArguments, kLayered, {}},
    {keys::kJavaRuntimeEnvironment, keys::kMainClass, Form::kClassName, kLayered, {}},
    {keys::kJavaRuntimeEnvironment, keys::kMinimumVersion, Form::kVersion, kLayered, {}},
    {keys::kJavaRuntimeEnvironment, keys::kMaximumVersion, Form::kVersion, kLayered, {}},
    {keys::kJavaRuntimeEnvironment, keys::kPreferredVersions, Form::kVersions, kLayered, {}},
    {keys::kJavaRuntimeEnvironment, keys::kJrePath, Form::kPath, kLayered, {}},
    {keys::kJavaRuntimeEnvironment, keys::kJvmType, Form::kWord, kLayered, kJvmTypes},
    {keys::kJavaRuntimeEnvironment, keys::kJvmSource, Form::kWord, kLayered, kSources},
    {keys::kJavaRuntimeEnvironment, keys::kVmProvider, Form::kWordAnyCase, kLayered, kProviders},
    {keys::kJavaRuntimeEnvironment, keys::kSystemPath, Form::kFolders, kLayered, {}},
    {keys::kJavaRuntimeEnvironment, keys::kLibraryPath, Form::kFolders, kLayered, {}},
    {keys::kJavaRuntimeEnvironment,
     keys::kVirtualMachineParameters,
     Form::kJvmOptions,
     kLayered,
     {}},
    {keys::kClassPath, keys::kClassPath, Form::kClassPath, kLayered, {}},
    {keys::kDisplay, keys::kSplashScreen, Form::kPath, kFileOnly, {}},
    {keys::kDisplay, keys::kSplashScreenShadow, Form::kExactlyTrue, kFileOnly, {}},
    {keys::kDisplay, keys::kPreferNativeSplashScreen, Form::kYes, kFileOnly, {}},
};

std::string JoinWords(std::span<const std::wstring_view> words) {
    std::string joined;
    for (const std::wstring_view word : words) {
        if (!joined.empty()) joined += ", ";
        joined += Utf8Of(word);
    }
    return joined;
}

}  // namespace

std::span<const KnownKey> KnownKeys() {
    return kKeys;
}

std::vector<std::wstring> KnownSections() {
    std::vector<std::wstring> sections;
    for (const KnownKey& key : kKeys) {
        if (sections.empty() || sections.back() != key.section) sections.emplace_back(key.section);
    }
    return sections;
}

const KnownKey* FindKnownKey(std::wstring_view section, std::wstring_view key) {
    const auto* const found =
        std::find_if(std::begin(kKeys), std::end(kKeys), [&](const auto& known) {
            return EqualsIgnoringCase(known.section, section) && EqualsIgnoringCase(known.key, key);
        });
    return found == std::end(kKeys) ? nullptr : found;
}

const KnownKey* FindKnownKey(std::wstring_view key) {
    const auto* const found =
        std::find_if(std::begin(kKeys), std::end(kKeys),
                     [&](const auto& known) { return EqualsIgnoringCase(known.key, key); });
    return found == std::end(kKeys) ? nullptr : found;
}

std::string DescribeForm(const KnownKey& key) {
    switch (key.form) {
        case Form::kText:
            return "text";
        case Form::kClassName:
            return "class name";
        case Form::kYes:
            return "Yes (letter case does not count)";
        case Form::kExactlyYes:
            return "exactly yes";
        case Form::kExactlyTrue:
            return "exactly true";
        case Form::kWord:
            return "one of " + JoinWords(key.words) + " (letter case counts)";
        case Form::kWordAnyCase:
            return "one of " + JoinWords(key.words) + " (letter case does not count)";
        case Form::kVersion:
            return "version or any";
        case Form::kVersions:
            return "versions with ; between them";
        case Form::kPath:
            return "path, nothing expanded";
        case Form::kOutputFile:
            return "file, with environment variables and a time stamp";
        case Form::kFolders:
            return "folders with ; between them, with environment variables";
        case Form::kClassPath:
            return "jars and folders with ; between them, with environment variables and *";
        case Form::kJvmOptions:
            return "JVM options with blanks between them, with environment variables";
        case Form::kArguments:
            return "arguments with blanks between them, with environment variables";
    }
    return {};
}

bool IsSpoiltByBlank(Form form) {
    switch (form) {
        case Form::kVersions:
        case Form::kClassPath:
        case Form::kJvmOptions:
        case Form::kArguments:
        case Form::kText:
            return false;
        default:
            return true;
    }
}

}  // namespace tarn::tools
