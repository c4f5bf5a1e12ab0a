#include "tools/wrap/application_settings.h"

#include <algorithm>

#include "settings/keys.h"
#include "tools/common/text_encoding.h"
#include "tools/settings/known_keys.h"

namespace tarn::tools {
namespace {

std::string Concat(const std::vector<std::string>& words, const char* separator) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : separator) + word;
    return text;
}

std::string AsWindowsPath(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

void AddApplication(const WrapRequest& request, SettingsWriter& settings) {
    if (request.endsWith == EndsWith::Threads) {
        settings.Add(keys::kApplication, keys::kApplicationType, "service",
                     "The process ends with its last thread, like java -jar. Without this line it "
                     "ends when main\nreturns.");
    }
    if (request.singleInstance) {
        settings.Add(keys::kApplication, keys::kSingleInstance, "yes",
                     "A second start hands its arguments to secondaryMain(String[]) of the main "
                     "class in the\nrunning instance.");
    } else if (request.endsWith != EndsWith::Threads) {
        settings.AddSuggestion(
            keys::kApplication, keys::kSingleInstance, "yes",
            "Remove the semicolon to run a single instance: a second start then hands its "
            "arguments to\nsecondaryMain(String[]) of the main class.");
    }
    const char* const kOwnFolder =
        "The application starts in its own folder. Without this line it starts in the caller's\n"
        "directory, and classes and resources that Java finds there are loaded.";
    if (request.keepsWorkingDirectory) {
        settings.AddSuggestion(keys::kApplication, keys::kOverrideWorkingDir, "Yes", kOwnFolder);
    } else {
        settings.Add(keys::kApplication, keys::kOverrideWorkingDir, "Yes", kOwnFolder);
    }
    settings.Add(keys::kApplication, keys::kFailureCheck, "Yes",
                 "Shows an uncaught exception of main in a dialog.");
    if (request.singleFile) settings.Add(keys::kApplication, keys::kEmbeddedJar, "Yes");
    if (request.arguments.empty()) {
        settings.AddSuggestion(
            keys::kApplication, keys::kCmd, "--example",
            "Arguments that main always receives, after those of the command line.");
    } else {
        settings.Add(keys::kApplication, keys::kCmd, request.arguments,
                     "Arguments that main always receives, after those of the command line.");
    }
    const std::string folder = LocalFolderOf(request) + '\\';
    settings.AddSuggestion(keys::kApplication, keys::kOutputFile, folder + "output.txt",
                           "A file for System.out.");
    settings.Add(keys::kApplication, keys::kErrorFile, folder + "errors.txt",
                 "A file for System.err, where Java writes why it cannot load the main class, and "
                 "the\nexceptions of other threads than main's. Each start replaces it.");
}

// All keywords of a key, separated by ";".
std::string AllKeywords(const wchar_t* section, const wchar_t* key) {
    std::vector<std::string> words;
    for (const std::wstring_view word : FindKnownKey(section, key)->keywords) {
        words.push_back(Utf8Of(word));
    }
    return Concat(words, ";");
}

void AddRuntime(const WrapRequest& request, const JavaStart& start, SettingsWriter& settings) {
    const wchar_t* const section = keys::kJavaRuntimeEnvironment;
    settings.Add(section, keys::kMainClass, start.mainClass);
    settings.Add(section, keys::kMinimumVersion,
                 start.minimumVersion.empty() ? "any" : start.minimumVersion,
                 "Versions of the installed Java runtimes that are accepted; \"any\" is no bound. "
                 "A runtime in\nthe folder jre64 beside the executable takes precedence.");
    settings.Add(section, keys::kMaximumVersion,
                 request.maximumVersion.empty() ? "any" : request.maximumVersion);
    if (request.runtime.empty()) {
        settings.Add(
            section, keys::kFurtherSources, AllKeywords(section, keys::kFurtherSources),
            "Where a runtime is searched that is not registered as JavaSoft's are: the "
            "makers' registry keys\nfor the machine and for the user, JAVA_HOME, Path, and "
            "the makers' folders.");
    }
    if (request.endsWith == EndsWith::Exit) {
        settings.Add(section, keys::kVmProvider, "any",
                     "The process runs until it calls System.exit, not only until main returns.");
    }
    std::vector<std::string> parameters = start.vmParameters;
    parameters.insert(parameters.end(), request.vmParameters.begin(), request.vmParameters.end());
    const std::string kHeap =
        "JVM options. -Xmx25:256:4096p is a quarter of the machine's memory, but at least 256 and "
        "at\nmost 4096 MiB.";
    const std::string kModules =
        " The module path is relative to the current directory, which is the\nexecutable's folder.";
    if (parameters.empty()) {
        settings.AddSuggestion(section, keys::kVirtualMachineParameters, "-Xmx25:256:4096p", kHeap);
    } else {
        const std::string options = Concat(parameters, " ");
        const bool hasModules = options.find("--module-path=") != std::string::npos;
        settings.Add(section, keys::kVirtualMachineParameters, options,
                     kHeap + (hasModules ? kModules : ""));
    }
}

}  // namespace

std::string LocalFolderOf(const WrapRequest& request) {
    // A second "%" in a file's name begins the picture of a time stamp.
    std::string name = request.name;
    std::replace(name.begin(), name.end(), '%', '_');
    return "%LOCALAPPDATA%\\" + name;
}

SettingsWriter ApplicationSettings(const WrapRequest& request, const JavaStart& start,
                                   const std::vector<std::string>& classPath,
                                   const std::string& splash, const std::string& fastStart) {
    SettingsWriter settings("Settings of " + request.name +
                            ".exe. Lines that begin with a semicolon are comments.");
    if (!request.singleFile) {
        settings.Add(keys::kProductInformation, keys::kProductName, request.title,
                     "Folder of the per-user settings below %APPDATA%.");
    }
    AddApplication(request, settings);
    if (!fastStart.empty()) {
        settings.Add(keys::kApplication, keys::kFastStart, fastStart,
                     "Java writes an archive of the classes that the application loaded when its "
                     "first run ends,\nand reads it from the second start on. Changed jars get a "
                     "new archive.");
    }
    AddRuntime(request, start, settings);
    if (!classPath.empty()) {
        settings.Add(keys::kClassPath, keys::kClassPath, AsWindowsPath(Concat(classPath, ";")),
                     "Relative to the executable's folder; lib\\*.jar is every jar in lib.");
    }
    if (!splash.empty()) {
        settings.Add(keys::kDisplay, keys::kSplashScreen, splash);
        settings.Add(keys::kDisplay, keys::kPreferNativeSplashScreen, "Yes",
                     "The picture closes when the application's first window opens.");
    }
    for (const auto& [name, value] : request.settings) {
        const std::size_t slash = name.find('/');
        settings.Set(name.substr(0, slash), name.substr(slash + 1), value);
    }
    return settings;
}

}  // namespace tarn::tools
