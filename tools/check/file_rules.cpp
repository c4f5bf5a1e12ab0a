#include <algorithm>

#include "base/paths.h"
#include "base/text.h"
#include "jvm/time_stamp.h"
#include "runtime/jvm_library.h"
#include "settings/keys.h"
#include "tools/check/class_path_on_disk.h"
#include "tools/check/jvm_options.h"
#include "tools/check/rules.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/common/whole_file.h"
#include "tools/image/picture_format.h"

namespace tarn::tools {
namespace {

constexpr std::uintmax_t kLargestPicture = 64U << 20U;

// For paths in which nothing is expanded.
void CheckNoVariable(const char* name, const Setting& path, Findings& findings) {
    if (!HasVariable(path.text)) return;
    findings.Warning(
        "not-expanded", path.line,
        std::string("environment variables are not expanded in \"") + name +
            "\": " + Quoted(path.text),
        "write a path relative to the executable's folder, with Override WorkingDir=Yes");
}

void CheckPicture(const CheckedSettings& settings, const Setting& picture,
                  const std::filesystem::path& file, Findings& findings) {
    std::string_view format;
    try {
        format = PictureFormat(ReadWholeFile(file, kLargestPicture));
    } catch (const Failure& failure) {
        findings.Warning("splash", picture.line, failure.what());
        return;
    }
    if (format.empty()) {
        findings.Warning("splash", picture.line,
                         "the splash picture " + Quoted(picture.text) +
                             " has a format that Windows does not decode",
                         "save it as PNG");
    } else if (settings.IsOn(keys::kDisplay, keys::kPreferNativeSplashScreen) &&
               !IsForNativeSplash(format)) {
        findings.Warning("splash", picture.line,
                         "Java's own splash decodes PNG, GIF and JPEG, not " + std::string(format),
                         "save the picture as PNG, or turn \"Preffer Native Splash Screen\" off");
    }
}

void CheckSplash(const CheckedSettings& settings, Findings& findings) {
    const Setting picture = settings.Get(keys::kDisplay, keys::kSplashScreen);
    if (!picture) return;
    CheckNoVariable("Splash Screen", picture, findings);
    if (HasVariable(picture.text) || IsAbsolutePath(picture.text)) return;
    if (!settings.IsOn(keys::kApplication, keys::kOverrideWorkingDir)) {
        findings.Note("working-directory", picture.line,
                      "the splash picture is relative to the current directory, which is wherever "
                      "the user starts the application",
                      "write Override WorkingDir=Yes to make it the executable's folder");
    }
    if (!settings.checksFiles()) return;
    const auto found = FindAsWindows(settings.folder(), picture.text);
    if (found.empty()) {
        findings.Warning("splash", picture.line,
                         "the splash picture " + Quoted(picture.text) +
                             " does not exist beside the settings file",
                         "add it, or remove \"Splash Screen\"");
        return;
    }
    CheckPicture(settings, picture, found.front(), findings);
}

// Whether a text between percent signs is a time stamp rather than an environment variable.
bool IsTimeStamp(std::wstring_view text) {
    return text.find_first_not_of(L"yMdHhmstgL -_.") == std::wstring_view::npos;
}

// The launcher creates the folders of absolute names only.
void CheckOutputFolder(const CheckedSettings& settings, const std::string& name,
                       const Setting& file, Findings& findings) {
    const std::wstring_view folder =
        std::wstring_view(file.text).substr(0, file.text.find_last_of(L"\\/") + 1);
    if (folder.empty() || folder.front() == L'\\' || folder.front() == L'/') return;
    const std::size_t open = folder.find(L'%');
    if (open != std::wstring_view::npos) {
        const std::size_t close = folder.rfind(L'%');
        if (close == open || !IsTimeStamp(folder.substr(open + 1, close - open - 1))) return;
    } else if (!settings.checksFiles() || !FindAsWindows(settings.folder(), folder).empty()) {
        return;
    }
    findings.Warning(
        "output-folder", file.line,
        "the folder of " + name + " is not created, because it is relative, and " + Quoted(folder) +
            " will not exist: the output is lost",
        "write an absolute path, such as %TEMP%\\" + Utf8Of(file.text) + ", or add the folder");
}

// Reports characters of the name, and of its time stamp, that file names cannot contain.
void CheckOutputFile(const CheckedSettings& settings, const wchar_t* key, Findings& findings) {
    const Setting file = settings.Get(keys::kApplication, key);
    if (!file) return;
    const std::string name = '"' + Utf8Of(key) + '"';
    const auto parts = SplitTimeStamp(file.text);
    const std::wstring_view picture = parts ? parts->picture : std::wstring_view();
    if (picture.find(L':') != std::wstring_view::npos &&
        picture.find(L":\\") == std::wstring_view::npos) {
        findings.Warning(
            "file-name", file.line,
            "the \":\" in the time stamp of " + name + " is not allowed in a file name",
            "write \"-\" or \".\" instead: %HH-mm-ss%");
    }
    const std::size_t from = IsAbsolutePath(file.text) ? 2 : 0;
    if (file.text.find_first_of(L"<>|?*\"", from) != std::wstring::npos) {
        findings.Warning(
            "file-name", file.line,
            name + " contains a character that is not allowed in a file name: " + Quoted(file.text),
            "remove < > | ? * and \"");
    }
    if (std::count(file.text.begin(), file.text.end(), L'%') == 1) {
        findings.Warning("file-name", file.line, "the single \"%\" in " + name + " is removed",
                         "write a time stamp between two of them, such as %yyyy-MM-dd%");
    }
    const bool isRelative = !IsAbsolutePath(file.text) && file.text.front() != L'%';
    if (!IsAbsolutePath(file.text)) CheckOutputFolder(settings, name, file, findings);
    if (isRelative && !settings.IsOn(keys::kApplication, keys::kOverrideWorkingDir)) {
        findings.Note("working-directory", file.line,
                      name +
                          " is relative to the current directory, which is wherever the user "
                          "starts the application",
                      "write an absolute path, such as %TEMP%\\" + Utf8Of(file.text));
    }
}

void CheckSharedOutput(const CheckedSettings& settings, Findings& findings) {
    const Setting output = settings.Get(keys::kApplication, keys::kOutputFile);
    const Setting errors = settings.Get(keys::kApplication, keys::kErrorFile);
    if (!output || !EqualsIgnoringCase(output.text, errors.text)) return;
    if (settings.IsOn(keys::kApplication, keys::kOutputAppend) &&
        settings.IsOn(keys::kApplication, keys::kErrorAppend)) {
        return;
    }
    findings.Warning("shared-output", errors.line,
                     "both streams are written to one file, where they overwrite each other",
                     "write Output Append=yes and Error Append=yes, or two names");
}

void CheckJrePath(const CheckedSettings& settings, Findings& findings) {
    const Setting home = settings.Get(keys::kJavaRuntimeEnvironment, keys::kJrePath);
    if (!home) return;
    CheckNoVariable("JRE Path", home, findings);
    if (HasVariable(home.text) || IsAbsolutePath(home.text)) return;
    if (!settings.IsOn(keys::kApplication, keys::kOverrideWorkingDir)) {
        findings.Warning("working-directory", home.line,
                         "\"JRE Path\" is relative to the current directory, which is wherever the "
                         "user starts the application",
                         "write Override WorkingDir=Yes; a runtime in jre64 beside the executable "
                         "requires no setting");
    }
    if (!settings.checksFiles()) return;
    const JvmType type =
        JvmTypeOf(settings.Get(keys::kJavaRuntimeEnvironment, keys::kJvmType).text);
    const std::wstring folder = EnsureTrailing(home.text, L'\\');
    for (const JvmLibraryPlace& place : JvmLibraryPlaces(type)) {
        if (!FindAsWindows(settings.folder(), folder + std::wstring(place.path)).empty()) return;
    }
    findings.Warning(
        "no-runtime", home.line,
        "no jvm.dll for these settings in \"JRE Path\" " + Quoted(home.text) + ": it is ignored",
        "specify the folder that contains bin");
}

void CheckLibraryPath(const CheckedSettings& settings, Findings& findings) {
    const Setting path = settings.Get(keys::kJavaRuntimeEnvironment, keys::kLibraryPath);
    if (!path || path.text.ends_with(L';')) return;
    findings.Warning("library-path", path.line,
                     "the executable's folder is appended to the last folder of \"Library Path\" "
                     "without a separator, so neither is found",
                     "end it with \";\": " + Utf8Of(path.text) + ';');
}

}  // namespace

void CheckFiles(const CheckedSettings& settings, Findings& findings) {
    CheckSplash(settings, findings);
    CheckOutputFile(settings, keys::kOutputFile, findings);
    CheckOutputFile(settings, keys::kErrorFile, findings);
    CheckSharedOutput(settings, findings);
    CheckJrePath(settings, findings);
    CheckLibraryPath(settings, findings);
    CheckNoVariable("Pair Product", settings.Get(keys::kApplication, keys::kPairProduct), findings);
}

}  // namespace tarn::tools
