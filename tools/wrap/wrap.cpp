#include "tools/wrap/wrap.h"

#include <algorithm>

#include "tools/common/ascii.h"
#include "tools/common/failure.h"
#include "tools/common/progress.h"
#include "tools/common/text_encoding.h"
#include "tools/image/picture_format.h"
#include "tools/settings/embedded_settings_text.h"
#include "tools/stamp/icon_file.h"
#include "tools/stamp/launcher_file.h"
#include "tools/stamp/stamp.h"
#include "tools/wrap/application_jars.h"
#include "tools/wrap/application_settings.h"
#include "tools/wrap/class_path_files.h"
#include "tools/wrap/fast_start_plan.h"
#include "tools/wrap/jar_facts.h"
#include "tools/wrap/java_start.h"
#include "tools/wrap/native_libraries.h"
#include "tools/wrap/output_folder.h"
#include "tools/wrap/result_check.h"
#include "tools/wrap/runtime_archive.h"
#include "tools/wrap/runtime_folder.h"

namespace tarn::tools {
namespace {

namespace fs = std::filesystem;

constexpr char kUnknownVersion[] = "0.0.0";

struct Splash {
    std::string file;  // empty without a splash
    Bytes picture;
};

Splash ReadSplash(const WrapRequest& request, const JarFile& jar, const JarFacts& facts,
                  std::vector<std::string>& warnings) {
    if (request.noSplash) return {};
    Splash splash;
    std::string where = Utf8OfPath(request.splash);
    if (!where.empty()) {
        splash.picture = ReadWholeFile(request.splash);
    } else if (!facts.splashEntry.empty()) {
        where = Utf8OfPath(jar.Path()) + ": SplashScreen-Image " + facts.splashEntry;
        const auto picture = jar.Read(facts.splashEntry);
        if (!picture) {
            warnings.push_back(where + " is not in the jar; the application gets no splash");
            return {};
        }
        if (request.singleFile || request.keepsWorkingDirectory) {
            warnings.push_back(where +
                               (request.singleFile
                                    ? " is omitted: a splash requires files beside the executable"
                                    : " is omitted: --keep-working-dir excludes a splash, "
                                      "which is looked up in the current directory"));
            return {};
        }
        splash.picture = *picture;
    } else {
        return {};
    }
    const std::string_view format = PictureFormat(splash.picture);
    if (!IsForNativeSplash(format)) throw Failure(where + " is not a PNG, GIF or JPEG picture");
    splash.file = "splash" + std::string(ExtensionOf(format));
    return splash;
}

StampChanges ChangesFor(const WrapRequest& request, const JarFacts& facts) {
    StampChanges changes;
    changes.version = !request.version.empty() ? request.version
                      : !facts.version.empty() ? facts.version
                                               : kUnknownVersion;
    const std::string vendor = request.vendor.empty() ? facts.vendor : request.vendor;
    // Company and copyright never default to the launcher's.
    changes.versionTexts = {
        {"CompanyName", vendor},
        {"LegalCopyright", request.copyright.empty() ? vendor : request.copyright},
        {"ProductName", request.title},
        {"FileDescription", request.description.empty() ? request.title : request.description},
        {"InternalName", request.name},
        {"OriginalFilename", request.name + ".exe"}};
    changes.strings = request.strings;
    if (!request.manifest.empty()) changes.manifest = ReadApplicationManifest(request.manifest);
    changes.manifestChanges = request.manifestChanges;
    if (!request.icon.empty()) {
        changes.icon = ReadIconFile(request.icon);
    }
    return changes;
}

Bytes StampedLauncher(const WrapRequest& request, const StampChanges& changes,
                      std::vector<std::string>& warnings) {
    const Bytes launcher = ReadWholeFile(request.launcher);
    return WithFileName(request.launcher, [&] {
        CheckIsLauncher(launcher);
        return Stamp(launcher, changes, warnings);
    });
}

void CheckName(const std::string& name) {
    if (name.find('/') != std::string::npos) {
        throw Failure("--name " + name + ": is not a valid name for a Windows executable");
    }
    // The name is also used without an extension, for folders.
    CheckWindowsPath(name, "--name " + name);
    CheckWindowsPath(name + ".exe", "--name " + name);
}

// Fills in the defaults from the jar.
WrapRequest Completed(WrapRequest request, const JarFacts& facts) {
    if (request.name.empty()) request.name = Utf8OfPath(request.jar.stem());
    CheckName(request.name);
    if (request.title.empty()) {
        const auto isControl = [](char letter) { return static_cast<unsigned char>(letter) < ' '; };
        if (std::any_of(facts.title.begin(), facts.title.end(), isControl)) {
            throw Failure(
                request.jar,
                "the title in its manifest contains a control character; specify --title");
        }
        request.title = facts.title.empty() ? request.name : facts.title;
    }
    if (request.out.empty()) request.out = PathOf(request.name);
    return request;
}

// --replace removes a folder with everything in it: only one that this program has created, and
// none with input that the result does not contain.
void CheckReplacedFolder(const WrapRequest& request, const std::string& executableName) {
    std::error_code error;
    const fs::path executable = request.out / PathOf(executableName);
    if (!request.replaces || !fs::is_regular_file(executable, error)) return;
    if (!IsLauncher(ReadWholeFile(executable))) {
        throw Failure(request.out, "is not replaced, because tarn wrap did not create its " +
                                       executableName + "; choose another --out");
    }
    std::vector<fs::path> inputs = {request.icon, request.manifest, request.launcher,
                                    request.config};
    if (request.singleFile) inputs.push_back(request.jar);
    for (const fs::path& input : inputs) {
        if (input.empty() || !IsBelow(input, request.out)) continue;
        throw Failure(request.out, "is not replaced, because it contains the input " +
                                       Utf8OfPath(input) + "; choose another --out");
    }
}

bool IsOnClassPath(const ClassPathFile& file) {
    return file.placement == Placement::ClassPath || file.placement == Placement::Both;
}

void WarnAboutNames(const std::vector<ClassPathFile>& files, std::vector<std::string>& warnings) {
    for (const ClassPathFile& file : files) {
        if (!IsAscii(std::string_view(file.target))) {
            warnings.push_back(file.target +
                               ": Java receives the class path in the user's 8-bit code page, "
                               "which may lack some of these characters; --utf8 makes it UTF-8, "
                               "from Windows 10 version 1903 on");
        }
    }
}

void CheckHasEffectInSingleFile(const WrapRequest& request) {
    for (const auto& [name, value] : request.settings) {
        const std::string section = name.substr(0, name.find('/'));
        if (IsReadWhenBuiltIn(WideOf(section))) continue;
        std::string message = "--set ";
        message += name;
        message += '=';
        message += value;
        message += ": has no effect with --single-file, because the launcher reads [";
        message += section;
        message += "] only from a settings file beside the executable";
        throw Failure(message);
    }
}

// Copies the class path, the additional files and the runtime.
void CopyFiles(const WrapRequest& request, const std::vector<ClassPathFile>& files,
               OutputFolder& output, const Console& console) {
    struct Copy {
        fs::path source;
        std::string target;
    };
    std::vector<Copy> copies;
    copies.reserve(files.size() + request.added.size() + 1);
    for (const ClassPathFile& file : files) copies.push_back({file.source, file.target});
    for (const fs::path& added : request.added) {
        const fs::path named = added.has_filename() ? added : added.parent_path();
        copies.push_back({added, Utf8OfPath(named.filename())});
    }
    if (!request.runtime.empty()) copies.push_back({request.runtime, kShippedRuntime});

    std::uintmax_t whole = 0;
    for (const Copy& copy : copies) whole += TreeSize(copy.source);
    Progress progress(console, "copying files", whole);
    for (const Copy& copy : copies) {
        output.Copy(copy.source, copy.target, [&](std::uintmax_t size) { progress.Add(size); });
    }
}

// The check of the unfinished result by `tarn check`.
void CheckUnfinished(const WrapRequest& request, const StampChanges& changes,
                     const OutputFolder& output) {
    std::vector<std::string> allowed = request.allowedFindings;
    // What the option is for.
    if (request.keepsWorkingDirectory) allowed.emplace_back("current-directory");
    const fs::path& folder = output.Unfinished();
    if (changes.settings) {
        const std::string file = request.name + ".exe";
        CheckResult(EmbeddedSettingsForCheck(*changes.settings, folder / PathOf(file)), file,
                    request.out, allowed);
    } else {
        const std::string file = request.name + ".ini";
        CheckResult(CheckedSettings::Load(folder / PathOf(file), true), file, request.out, allowed);
    }
}

}  // namespace

fs::path Wrap(const WrapRequest& asked, const Console& console) {
    std::vector<std::string> warnings;
    const Bytes jarContent = ReadWholeFile(asked.jar);
    const JarFile jar(jarContent, asked.jar);
    const JarFacts facts = ReadJarFacts(jar, asked.mainClass, warnings);
    const WrapRequest request = Completed(asked, facts);
    if (request.singleFile) CheckHasEffectInSingleFile(request);
    if (!request.runtime.empty()) CheckRuntime(request.runtime);
    ApplicationJars jars = OpenJars(CollectClassPath(jar, request.classPath, warnings));
    if (FindClass(jars, facts.mainClass) == nullptr) {
        warnings.push_back("the main class " + facts.mainClass + " is in none of the jars");
    }
    const JavaStart start = PlanStart(request, facts, jars, warnings);
    WarnAboutOtherSystems(jars, warnings);
    std::vector<ClassPathFile> files;
    for (const ApplicationJar& each : jars) {
        if (each.file.placement != Placement::Omitted) files.push_back(each.file);
    }
    if (!request.manifestChanges.usesUtf8) WarnAboutNames(files, warnings);
    const Splash splash = ReadSplash(request, jar, facts, warnings);
    if (request.singleFile) {
        files.erase(files.begin());
        if (!files.empty()) {
            const std::string others =
                files.size() == 1 ? "other file" : std::to_string(files.size()) + " other files";
            warnings.push_back("the single file requires the " + others +
                               " of the class path beside it");
        }
    }
    std::vector<std::string> classPath;
    classPath.reserve(files.size());
    for (const ClassPathFile& file : files) {
        if (IsOnClassPath(file)) classPath.push_back(file.target);
    }
    const std::string fastStart =
        request.fastStart ? PlanFastStart(request, start, files) : std::string();
    const SettingsWriter settings =
        ApplicationSettings(request, start, classPath, splash.file, fastStart);

    StampChanges changes = ChangesFor(request, facts);
    if (request.singleFile) {
        std::vector<std::string> ignored;  // sections without effect in an executable
        changes.settings = EmbeddedSettingsText(SettingsDocument(WideOf(settings.Text())), ignored);
        changes.jar = jarContent;
    }
    const Bytes executable = StampedLauncher(request, changes, warnings);

    const std::string executableName = request.name + ".exe";
    CheckReplacedFolder(request, executableName);
    OutputFolder output(request.out, request.replaces, executableName);
    output.Write(executableName, executable, "the executable");
    if (!request.singleFile)
        output.Write(request.name + ".ini", settings.Content(), "the settings file");
    if (!splash.file.empty()) output.Write(splash.file, splash.picture, "the splash picture");
    CopyFiles(request, files, output, console);
    if (!request.runtime.empty() && !request.noRuntimeArchive) {
        console.ShowProgress("making the archive of the runtime's classes");
        MakeRuntimeArchive(output.Unfinished() / kShippedRuntime, request.runtime, warnings);
        console.ShowProgress({});
    }
    CheckUnfinished(request, changes, output);
    const fs::path remains = output.Finish();
    if (!remains.empty()) {
        warnings.push_back("the previous folder cannot be removed completely; delete " +
                           Utf8OfPath(remains));
    }
    for (const std::string& warning : warnings) console.PrintWarning(warning);
    return request.out / PathOf(executableName);
}

}  // namespace tarn::tools
