#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "tools/common/console.h"

namespace tarn::tools {

/// When the process of the application ends.
enum class EndsWith {
    Threads,  // with its last thread that is no daemon, as with "java -jar"
    Exit,     // when it calls System.exit
    Main,     // when main returns
};

/// What "tarn wrap" was asked for. Texts are UTF-8; empty ones leave the choice to the jar.
struct WrapRequest {
    std::filesystem::path jar;
    std::filesystem::path launcher;
    std::filesystem::path out;
    std::string name;
    std::filesystem::path icon;
    std::filesystem::path splash;
    std::filesystem::path runtime;
    std::vector<std::filesystem::path> classPath;
    std::vector<std::filesystem::path> added;  // files and folders that come along
    std::string mainClass;
    std::string version;
    std::string title;
    std::string vendor;
    std::string minimumVersion;
    std::string maximumVersion;
    std::string vmParameters;
    std::string arguments;
    EndsWith endsWith = EndsWith::Threads;
    bool singleInstance = false;
    bool singleFile = false;
    bool noSplash = false;
    bool keepsWorkingDirectory = false;  // starts in the caller's directory, not the application's
    bool replaces = false;
    std::vector<std::pair<std::string, std::string>> settings;  // "Section/Key" and value
};

/// Makes the application's folder and gives the path of its executable. The same request gives the
/// same bytes on every machine. Throws Failure, and then no folder is left behind.
std::filesystem::path Wrap(const WrapRequest& request, const Console& console);

}  // namespace tarn::tools
