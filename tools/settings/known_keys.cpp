#include "tools/settings/known_keys.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "base/text.h"
#include "runtime/further_sources.h"
#include "settings/keys.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

using enum SettingForm;
using enum SettingSource;

constexpr std::wstring_view kTypes[] = {L"service"};
constexpr std::wstring_view kJvmTypes[] = {L"server", L"favor_server"};
constexpr std::wstring_view kSources[] = {L"favor_JRE", L"favor_JDK", L"only_JRE", L"only_JDK"};
constexpr std::wstring_view kProviders[] = {L"jrockit",       L"ibm",       L"favor_sun",
                                            L"favor_jrockit", L"favor_ibm", L"any"};

// The words that the launcher's search recognises.
constexpr auto kFurtherSources = [] {
    std::array<std::wstring_view, std::size(kFurtherSourceWords)> words;
    std::copy(std::begin(kFurtherSourceWords), std::end(kFurtherSourceWords), words.begin());
    return words;
}();

constexpr auto* kRuntime = keys::kJavaRuntimeEnvironment;

constexpr KnownKey kKeys[] = {
    {keys::kProductInformation, keys::kProductName, Text, MainFile, {}},
    {keys::kProductInformation, keys::kProductCode, Text, MainFile, {}},
    {keys::kApplication, keys::kApplicationType, Keyword, Layered, kTypes},
    {keys::kApplication, keys::kOmitServiceName, Text, Layered, {}},
    {keys::kApplication, keys::kSingleInstance, ExactlyYes, Layered, {}},
    {keys::kApplication, keys::kFailureCheck, Yes, Layered, {}},
    {keys::kApplication, keys::kOverrideWorkingDir, Yes, Layered, {}},
    {keys::kApplication, keys::kPairProduct, Path, Layered, {}},
    {keys::kApplication, keys::kPairReturnCode, Yes, Layered, {}},
    {keys::kApplication, keys::kEmbeddedJar, Yes, Layered, {}},
    {keys::kApplication, keys::kOutputFile, OutputFile, Layered, {}},
    {keys::kApplication, keys::kOutputAppend, ExactlyYes, Layered, {}},
    {keys::kApplication, keys::kErrorFile, OutputFile, Layered, {}},
    {keys::kApplication, keys::kErrorAppend, ExactlyYes, Layered, {}},
    {keys::kApplication, keys::kCmd, Arguments, Layered, {}},
    {keys::kApplication, keys::kFastStart, ArchiveFile, Layered, {}},
    {kRuntime, keys::kMainClass, ClassName, Layered, {}},
    {kRuntime, keys::kMinimumVersion, Version, Layered, {}},
    {kRuntime, keys::kMaximumVersion, Version, Layered, {}},
    {kRuntime, keys::kPreferredVersions, Versions, Layered, {}},
    {kRuntime, keys::kJrePath, Path, PerUser, {}},
    {kRuntime, keys::kJvmType, Keyword, Layered, kJvmTypes},
    {kRuntime, keys::kJvmSource, Keyword, Layered, kSources},
    {kRuntime, keys::kVmProvider, KeywordAnyCase, Layered, kProviders},
    {kRuntime, keys::kFurtherSources, Keywords, Layered, kFurtherSources},
    {kRuntime, keys::kSystemPath, Folders, Layered, {}},
    {kRuntime, keys::kLibraryPath, Folders, Layered, {}},
    {kRuntime, keys::kVirtualMachineParameters, JvmOptions, Layered, {}},
    {keys::kClassPath, keys::kClassPath, ClassPath, Layered, {}},
    {keys::kDisplay, keys::kSplashScreen, Path, MainFile, {}},
    {keys::kDisplay, keys::kSplashScreenShadow, ExactlyTrue, MainFile, {}},
    {keys::kDisplay, keys::kPreferNativeSplashScreen, Yes, MainFile, {}},
};

std::string JoinKeywords(std::span<const std::wstring_view> keywords) {
    std::string joined;
    for (const std::wstring_view keyword : keywords) {
        if (!joined.empty()) joined += ", ";
        joined += Utf8Of(keyword);
    }
    return joined;
}

template <typename Predicate>
const KnownKey* FindIf(const Predicate& predicate) {
    const auto* const found = std::find_if(std::begin(kKeys), std::end(kKeys), predicate);
    return found == std::end(kKeys) ? nullptr : found;
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
    return FindIf([&](const KnownKey& known) {
        return EqualsIgnoringCase(known.section, section) && EqualsIgnoringCase(known.key, key);
    });
}

const KnownKey* FindKnownKey(std::wstring_view key) {
    return FindIf([&](const KnownKey& known) { return EqualsIgnoringCase(known.key, key); });
}

std::optional<bool> FlagValue(SettingForm form, std::wstring_view value) {
    switch (form) {
        case Yes:
            return EqualsIgnoringCase(value, L"Yes");
        case ExactlyYes:
            return value == L"yes";
        case ExactlyTrue:
            return value == L"true";
        default:
            return std::nullopt;
    }
}

std::string DescribeForm(const KnownKey& key) {
    switch (key.form) {
        case Text:
            return "text";
        case ClassName:
            return "class name";
        case Yes:
            return "Yes (case-insensitive)";
        case ExactlyYes:
            return "yes (case-sensitive)";
        case ExactlyTrue:
            return "true (case-sensitive)";
        case Keyword:
            return "one of " + JoinKeywords(key.keywords) + " (case-sensitive)";
        case KeywordAnyCase:
            return "one of " + JoinKeywords(key.keywords) + " (case-insensitive)";
        case Keywords:
            return "some of " + JoinKeywords(key.keywords) + ", separated by ; (case-insensitive)";
        case Version:
            return "version or any";
        case Versions:
            return "versions separated by ;";
        case Path:
            return "path, not expanded";
        case OutputFile:
            return "file, with environment variables and a time stamp";
        case ArchiveFile:
            return "start of a file name, then jars, separated by ;, with environment variables";
        case Folders:
            return "folders separated by ;, with environment variables";
        case ClassPath:
            return "jars and folders separated by ;, with environment variables and wildcards";
        case JvmOptions:
            return "JVM options separated by spaces, with environment variables";
        case Arguments:
            return "arguments separated by spaces, with environment variables";
    }
    return {};
}

bool AllowsLeadingSpace(SettingForm form) {
    return form == Keywords || form == Versions || form == ClassPath || form == JvmOptions ||
           form == Arguments || form == Text;
}

}  // namespace tarn::tools
