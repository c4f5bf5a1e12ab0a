#include <algorithm>

#include "base/text.h"
#include "jvm/class_path.h"
#include "runtime/runtime_version.h"
#include "settings/keys.h"
#include "tools/check/class_path_on_disk.h"
#include "tools/check/jvm_options.h"
#include "tools/check/main_class_search.h"
#include "tools/check/rules.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

constexpr std::wstring_view kWildcards = L"*?";

// A wildcard may match any file; a file named explicitly has to be a jar.
bool IsNamedJar(const DiskEntry& entry) {
    return entry.written.find_first_of(kWildcards) == std::wstring::npos;
}

std::string AdviceForMissing(const std::wstring& entry) {
    if (entry != TrimSpaces(entry)) return "spaces around \";\" are part of the name: remove them";
    const std::size_t name = entry.rfind(L'\\') + 1;
    if (entry.substr(0, name).find_first_of(kWildcards) != std::wstring::npos) {
        return "wildcards apply to the last name only";
    }
    if (entry.find(L',') != std::wstring::npos)
        return "separate entries with \";\", not with \",\"";
    return "entries are relative to the executable's folder; add the file, or remove the entry";
}

// Whether the entry is several, separated as on other systems. A drive has one letter.
bool HasOtherSeparator(const std::wstring& entry) {
    return !HasVariable(entry) && entry.find(L':', 2) != std::wstring::npos;
}

// The entries separated as Windows requires, with its own slashes.
std::string AdviceForSeparator(const std::wstring& entry) {
    if (entry.starts_with(L"file:")) return "write a path instead of a URL";
    std::wstring separated = ReplaceAll(entry, L'/', L'\\');
    for (std::size_t at = 0; (at = separated.find(L':', at + 1)) != std::wstring::npos;) {
        const bool isDrive = at == 1 || separated[at - 2] == L';';
        if (!isDrive) separated[at] = L';';
    }
    return "separate entries with \";\", not with \":\": " + Utf8Of(separated);
}

void CheckEntries(const std::vector<DiskEntry>& entries, const Setting& classPath,
                  Findings& findings) {
    for (const DiskEntry& entry : entries) {
        const bool isSearched = !IsLiteralEntry(entry.written);
        if (HasOtherSeparator(entry.written)) {
            findings.Warning("no-match", classPath.line,
                             "the class path entry " + Quoted(entry.written) +
                                 " is one file name for Windows, and matches nothing",
                             AdviceForSeparator(entry.written));
        } else if (isSearched && entry.written.find(L'/') != std::wstring::npos) {
            findings.Error("slash", classPath.line,
                           "of " + Quoted(entry.written) +
                               " only the part before the last \"\\\" is the folder, so the files "
                               "are searched in another one",
                           "write " + Utf8Of(ReplaceAll(entry.written, L'/', L'\\')));
        } else if (entry.isKnown && entry.found.empty()) {
            findings.Warning(
                "no-match", classPath.line,
                "the class path entry " + Quoted(entry.written) +
                    (isSearched ? " matches nothing and is dropped silently" : " does not exist"),
                AdviceForMissing(entry.written));
        } else if (entry.written == L"*" || entry.written.ends_with(L"\\*")) {
            findings.Note("all-files", classPath.line,
                          Quoted(entry.written) +
                              " puts everything in the folder on the class path, including "
                              "subfolders and \"..\"",
                          "write " + Utf8Of(entry.written) + ".jar");
        }
    }
}

// Mistakes in the class name that are recognised without the jars.
void CheckClassName(const Setting& mainClass, Findings& findings) {
    const std::wstring& name = mainClass.text;
    if (name.find_first_of(L" \t") != std::wstring::npos) {
        findings.Error(
            "main-class-name", mainClass.line,
            "the main class " + Quoted(name) + " contains a space",
            "write the name only; a comment must be a line of its own that begins with \";\"");
    } else if (name.ends_with(L".class") || name.ends_with(L".java") || name.ends_with(L".jar")) {
        findings.Error("main-class-name", mainClass.line,
                       Quoted(name) + " is a file name; \"Main Class\" expects a class",
                       "write it like com.example.Main");
    } else if (name.find(L'\\') != std::wstring::npos) {
        findings.Error("main-class-name", mainClass.line,
                       "the main class " + Quoted(name) + " contains a backslash",
                       "write " + Utf8Of(ReplaceAll(name, L'\\', L'.')));
    }
}

void CheckJavaVersion(const CheckedSettings& settings, const Setting& mainClass, int javaVersion,
                      Findings& findings) {
    const Setting written = settings.Get(keys::kJavaRuntimeEnvironment, keys::kMinimumVersion);
    if (javaVersion <= 8) return;
    const RuntimeVersion minimum = MinimumBound(written.text);
    if (minimum.parts[0] >= javaVersion) return;
    findings.Warning("class-version", written ? written.line : mainClass.line,
                     "the main class requires Java " + std::to_string(javaVersion) +
                         ", but an older runtime may be chosen",
                     "write Minimum Version=" + std::to_string(javaVersion));
}

void CheckMainClass(const CheckedSettings& settings, const Setting& mainClass,
                    const std::vector<DiskEntry>& entries, Findings& findings) {
    const Setting classPath = settings.Get(keys::kClassPath, keys::kClassPath);
    const bool isEmbedded = settings.IsOn(keys::kApplication, keys::kEmbeddedJar);
    bool isWhole = true;
    std::vector<std::filesystem::path> files, named;
    for (const DiskEntry& entry : entries) {
        isWhole = isWhole && entry.isKnown;
        files.insert(files.end(), entry.found.begin(), entry.found.end());
        if (IsNamedJar(entry)) named.insert(named.end(), entry.found.begin(), entry.found.end());
    }
    if (!settings.checksFiles()) return;
    std::optional<std::filesystem::path> executable;
    std::error_code error;
    if (isEmbedded && std::filesystem::exists(settings.Executable(), error)) {
        executable = settings.Executable();
    }
    isWhole = isWhole && (!isEmbedded || executable);

    const std::string name = Utf8Of(ReplaceAll(mainClass.text, L'.', L'/'));
    const ClassSearch search = FindClass(name, files, executable);
    for (const ClassSearch::BadJar& bad : search.badJars) {
        if (std::find(named.begin(), named.end(), bad.file) == named.end()) continue;
        findings.Warning("bad-jar", classPath.line, bad.problem, "replace the file");
    }
    if (search.isFound) {
        CheckJavaVersion(settings, mainClass, search.javaVersion, findings);
    } else if (isWhole && (!files.empty() || isEmbedded)) {
        std::string advice = "write the name from \"Main-Class\" in the jar's manifest";
        if (!search.similar.empty()) advice = "did you mean " + search.similar.front() + "?";
        findings.Error(
            "no-main-class", mainClass.line,
            "the main class " + Quoted(mainClass.text) + " is in none of the class path's files",
            std::move(advice));
    }
}

}  // namespace

// The launcher ends the class path with ";". With "Override WorkingDir" the empty element is the
// application's own folder, whose contents are trusted anyway; otherwise it is any folder that the
// user happens to start the application from.
void CheckCurrentDirectory(const CheckedSettings& settings, Findings& findings) {
    const Setting classPath = settings.Get(keys::kClassPath, keys::kClassPath);
    const bool hasClassPath = !ClassPathEntries(classPath.text).empty() ||
                              settings.IsOn(keys::kApplication, keys::kEmbeddedJar);
    if (!hasClassPath || settings.IsOn(keys::kApplication, keys::kOverrideWorkingDir)) return;
    const WrittenOptions jvm = JvmOptionsOf(settings);
    for (const std::wstring& option : jvm.options) {
        // The last definition of the property wins.
        if (option.starts_with(L"-Djava.class.path=")) return;
    }
    findings.Warning("current-directory", classPath.line,
                     "Java also searches the current directory, which is wherever the user starts "
                     "the application: classes and resources found there, such as log4j2.xml, are "
                     "loaded",
                     "write Override WorkingDir=Yes to make it the executable's folder");
}

void CheckClassPath(const CheckedSettings& settings, Findings& findings) {
    const Setting mainClass = settings.Get(keys::kJavaRuntimeEnvironment, keys::kMainClass);
    const Setting classPath = settings.Get(keys::kClassPath, keys::kClassPath);
    const bool isEmbedded = settings.IsOn(keys::kApplication, keys::kEmbeddedJar);
    const std::vector<DiskEntry> entries = ClassPathOnDisk(settings);
    CheckEntries(entries, classPath, findings);

    const bool isEmpty = std::all_of(entries.begin(), entries.end(), [](const DiskEntry& entry) {
        return entry.isKnown && entry.found.empty() && !IsLiteralEntry(entry.written);
    });
    if (isEmpty && !isEmbedded) {
        findings.Error("no-class-path", classPath.line,
                       entries.empty() ? "no \"Class Path\": the launch shows a message"
                                       : "the class path is empty: the launch shows a message",
                       "write the application's jar into \"Class Path\" of [Class Path]");
    }
    if (!mainClass) {
        findings.Error("no-main-class", 0, "no \"Main Class\": the launch ends with a message",
                       "write Main Class=<class> below [Java Runtime Environment]");
        return;
    }
    CheckClassName(mainClass, findings);
    CheckMainClass(settings, mainClass, entries, findings);
}

}  // namespace tarn::tools
