#include <algorithm>
#include <set>

#include "base/paths.h"
#include "base/text.h"
#include "jvm/fast_start.h"
#include "runtime/search_policy.h"
#include "settings/keys.h"
#include "tools/check/admitted_versions.h"
#include "tools/check/class_path_on_disk.h"
#include "tools/check/jvm_options.h"
#include "tools/check/rules.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/common/whole_file.h"
#include "tools/java/jar_file.h"
#include "tools/java/java_version.h"
#include "tools/java/manifest.h"

namespace tarn::tools {
namespace {

constexpr int kFirstToWrite = 21;
constexpr int kFirstWithCompactHeaders = 25;
constexpr std::wstring_view kRead = L"-XX:SharedArchiveFile=";
constexpr std::wstring_view kWrite = L"-XX:ArchiveClassesAtExit=";
constexpr std::wstring_view kReadAndWrite = L"-XX:+AutoCreateSharedArchive";
constexpr std::wstring_view kCompactHeaders = L"-XX:+UseCompactObjectHeaders";
constexpr std::wstring_view kNoCompactHeaders = L"-XX:-UseCompactObjectHeaders";
constexpr std::wstring_view kModulePath = L"--module-path=";

// Whether the launcher waits for what writes an archive: the last thread, or System.exit.
bool WaitsForEnd(const CheckedSettings& settings) {
    RuntimeSearchPolicy policy;
    ApplyVmProvider(settings.Get(keys::kJavaRuntimeEnvironment, keys::kVmProvider).text, policy);
    return IbmInPolicy(policy) ||
           settings.Get(keys::kApplication, keys::kApplicationType).text == L"service";
}

void WarnThatNoneIsWritten(const CheckedSettings& settings, std::size_t line, Findings& findings) {
    if (WaitsForEnd(settings)) return;
    findings.Warning("archive-not-written", line,
                     "the process ends when main returns, and then Java writes no archive: only "
                     "System.exit during main writes one",
                     "write Application Type=service, or VM Provider=any for an application that "
                     "calls System.exit");
}

// The options that the settings contain themselves.
void CheckWrittenOptions(const CheckedSettings& settings, const WrittenOptions& written,
                         Findings& findings) {
    std::size_t readers = 0;
    bool writes = false;
    for (const std::wstring& option : written.options) {
        writes = writes || option.starts_with(kWrite) || option == kReadAndWrite;
        if (!option.starts_with(kRead)) continue;
        ++readers;
        const std::wstring file = option.substr(kRead.size());
        if (!IsAbsolutePath(file) && !file.starts_with(L'%')) {
            findings.Warning("archive-path", written.line,
                             "the archive " + Quoted(file) +
                                 " is looked up in the current directory; where it is missing, "
                                 "the JVM uses no archive at all and starts slower",
                             "write its absolute path, such as %LOCALAPPDATA%\\NAME.jsa");
        }
    }
    if (readers > 1) {
        findings.Warning("archive-options", written.line,
                         "of several -XX:SharedArchiveFile options only the last one counts",
                         "remove the others");
    }
    if (writes) WarnThatNoneIsWritten(settings, written.line, findings);
}

// Whether the switch is on; the last occurrence counts.
bool UsesCompactHeaders(const WrittenOptions& written) {
    const auto isSwitch = [](std::wstring_view option) {
        return option == kCompactHeaders || option == kNoCompactHeaders;
    };
    const auto last = std::find_if(written.options.rbegin(), written.options.rend(), isSwitch);
    return last != written.options.rend() && *last == kCompactHeaders;
}

// The archive of the shipped runtime's own classes. The layout of objects in it is fixed, so that
// compact object headers require an archive of their own, and the usual one is not read.
void CheckRuntimeArchive(const CheckedSettings& settings, const WrittenOptions& written,
                         bool hasFastStart, Findings& findings) {
    const auto home = ShippedRuntime(settings);
    if (!home) return;
    const bool isCompact = UsesCompactHeaders(written) &&
                           JavaFeatureOf(ReadJavaVersion(*home)) >= kFirstWithCompactHeaders;
    const std::string name = isCompact ? "classes_coh.jsa" : "classes.jsa";
    const std::filesystem::path server = *home / "bin" / "server";
    std::error_code error;
    if (!std::filesystem::exists(server / "jvm.dll", error) ||
        std::filesystem::exists(server / name, error)) {
        return;
    }
    const std::string option = isCompact ? Utf8Of(kCompactHeaders) : std::string();
    findings.Note("runtime-archive", isCompact ? written.line : 0,
                  "the shipped runtime lacks bin\\server\\" + name +
                      ", the archive of its own classes" +
                      (isCompact ? " for " + option : std::string()) + ": Java starts slower" +
                      (hasFastStart ? ", and \"Fast Start\" has no effect" : ""),
                  "run its bin\\java.exe " + (isCompact ? option + ' ' : std::string()) +
                      "-Xshare:dump once on Windows");
}

class FastStartChecker {
  public:
    FastStartChecker(const CheckedSettings& settings, const WrittenOptions& written,
                     const Setting& value, Findings& findings)
        : settings_(settings), written_(written), value_(value), findings_(findings) {}

    void Check() {
        const std::wstring prefix = value_.text.substr(0, value_.text.find(L';'));
        if (!IsAbsolutePath(prefix) && !prefix.starts_with(L'%')) {
            Warning("archive-path",
                    "the archive " + Quoted(prefix) + " is not in the user's own folder",
                    "write an absolute path, such as %LOCALAPPDATA%\\NAME\\NAME");
        }
        WarnThatNoneIsWritten(settings_, value_.line, findings_);
        CheckOptions();
        CheckRuntime();
        if (settings_.checksFiles()) CheckClassPath();
    }

  private:
    void Warning(const char* id, std::string message, std::string advice) {
        findings_.Warning(id, value_.line, std::move(message), std::move(advice));
    }

    void CheckOptions() {
        const auto begins = [&](std::wstring_view start) {
            return std::any_of(written_.options.begin(), written_.options.end(),
                               [&](const auto& option) { return option.starts_with(start); });
        };
        const bool isRuledOut =
            std::any_of(written_.options.begin(), written_.options.end(),
                        [](const auto& option) { return RulesOutArchive(Utf8Of(option)); });
        if (isRuledOut) {
            Warning("archive-options",
                    "\"Fast Start\" has no effect, because \"Virtual Machine Parameters\" contain "
                    "options for an archive, or options with which Java writes none",
                    "remove one of the two");
        }
        if (begins(kModulePath) && value_.text.find(L';') == std::wstring::npos) {
            Warning(
                "archive-stale",
                "the jars of the module path are not compared: an archive may contain classes of "
                "a module that was replaced by one of equal time and size",
                "add each jar to the value, after a \";\": " + Utf8Of(value_.text) +
                    ";modules\\x.jar");
        }
    }

    void CheckRuntime() {
        const auto home = ShippedRuntime(settings_);
        if (!home) return;
        const std::string version = ReadJavaVersion(*home);
        if (JavaFeatureOf(version) < kFirstToWrite) {
            Warning("archive-runtime",
                    "the shipped runtime " +
                        (version.empty() ? std::string("does not state its version (file release)")
                                         : "is Java " + version +
                                               ", which the launcher tells to write no archive"),
                    "ship Java 21 or newer, or remove \"Fast Start\"");
        }
    }

    void CheckClassPath() {
        std::vector<std::filesystem::path> files;
        for (const DiskEntry& entry : ClassPathOnDisk(settings_)) {
            files.insert(files.end(), entry.found.begin(), entry.found.end());
        }
        const std::wstring_view value = value_.text;
        const std::size_t more = std::min(value.find(L';'), value.size());
        for (const std::wstring& piece : Split(value.substr(more), L';')) {
            if (piece.empty() || !IsResolvableHere(piece)) continue;
            const auto found = FindEntry(settings_, piece);
            files.insert(files.end(), found.begin(), found.end());
        }
        std::set<std::filesystem::path> known;
        std::error_code error;
        for (const auto& file : files) known.insert(std::filesystem::weakly_canonical(file, error));
        for (const auto& file : files) CheckFile(file, known);
    }

    void CheckFile(const std::filesystem::path& file,
                   const std::set<std::filesystem::path>& known) {
        std::error_code error;
        if (std::filesystem::is_directory(file, error)) {
            Warning(
                "archive-not-written",
                Quoted(WideOf(Utf8OfPath(file.filename()))) +
                    " is a folder of classes, which Java does not archive: \"Fast Start\" has no "
                    "effect",
                "pack it into a jar");
            return;
        }
        for (const std::string& word : ClassPathOfManifest(file)) {
            const auto named = file.parent_path() / PathOf(word);
            if (!std::filesystem::is_regular_file(named, error) ||
                known.contains(std::filesystem::weakly_canonical(named, error))) {
                continue;
            }
            Warning("archive-stale",
                    Utf8OfPath(file.filename()) + " adds " + word +
                        " to the class path by its manifest, which is not compared: an archive "
                        "may contain its old classes after it was replaced",
                    "add it to \"Class Path\"");
        }
    }

    static std::vector<std::string> ClassPathOfManifest(const std::filesystem::path& file) {
        try {
            const Bytes content = ReadWholeFile(file);
            const JarFile jar(content, file);
            if (!jar.Has(std::string(kManifestEntry))) return {};
            return Manifest::Of(jar).GetWords("Class-Path");
        } catch (const Failure&) {
            // Another rule reports a jar that cannot be read.
            return {};
        }
    }

    const CheckedSettings& settings_;
    const WrittenOptions& written_;
    const Setting& value_;
    Findings& findings_;
};

}  // namespace

void CheckFastStart(const CheckedSettings& settings, Findings& findings) {
    const WrittenOptions written = JvmOptionsOf(settings);
    CheckWrittenOptions(settings, written, findings);
    const Setting value = settings.Get(keys::kApplication, keys::kFastStart);
    if (value) FastStartChecker(settings, written, value, findings).Check();
    CheckRuntimeArchive(settings, written, static_cast<bool>(value), findings);
}

}  // namespace tarn::tools
