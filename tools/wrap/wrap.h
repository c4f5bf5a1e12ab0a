#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "tools/common/console.h"
#include "tools/stamp/application_manifest.h"

namespace tarn::tools {

/// When the application's process ends.
enum class EndsWith {
    Threads,  // with the last non-daemon thread, like "java -jar"
    Exit,     // on System.exit
    Main,     // when main returns
};

/// How Java loads the main class.
enum class StartsAs {
    Automatic,  // as the jar's author meant it
    ClassPath,
    Module,
};

/// The options of `tarn wrap`. Texts are UTF-8; empty ones default to what the jar specifies.
struct WrapRequest {
    std::filesystem::path jar;
    std::filesystem::path launcher;
    std::filesystem::path out;
    std::filesystem::path config;  // from which options were read
    std::string name;
    std::filesystem::path icon;
    std::filesystem::path splash;
    std::filesystem::path runtime;
    std::vector<std::filesystem::path> classPath;
    std::vector<std::filesystem::path> added;  // additional files and folders
    std::string mainClass;
    std::string version;
    std::string title;
    std::string vendor;
    std::string copyright;    // default: the vendor
    std::string description;  // default: the title
    std::filesystem::path manifest;
    ManifestChanges manifestChanges;
    std::vector<std::pair<std::uint16_t, std::string>> strings;  // string table entries by id
    std::string minimumVersion;
    std::string maximumVersion;
    std::vector<std::string> vmParameters;
    std::string arguments;
    EndsWith endsWith = EndsWith::Threads;
    StartsAs startsAs = StartsAs::Automatic;
    bool singleInstance = false;
    bool singleFile = false;
    bool noSplash = false;
    bool keepsWorkingDirectory = false;  // instead of the application's folder
    bool replaces = false;
    bool fastStart = false;         // an archive of the application's classes for each user
    bool noRuntimeArchive = false;  // none of the runtime's own classes
    std::vector<std::pair<std::string, std::string>> settings;  // "Section/Key" and value
    std::vector<std::string> allowedFindings;  // ids of findings of `tarn check` that are accepted
};

/// Creates the application's folder and returns the path of its executable. The same request gives
/// the same bytes on every machine, except an archive that the shipped runtime makes of its own
/// classes. Throws Failure and then leaves no folder behind, also when
/// `tarn check --strict` would not accept the result.
std::filesystem::path Wrap(const WrapRequest& request, const Console& console);

}  // namespace tarn::tools
