#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tools/java/jar_file.h"

namespace tarn::tools {

/// Where Java looks for a file's classes.
enum class Placement {
    ClassPath,
    ModulePath,
    Both,  // a module whose jar is also the only entry that keeps the class path from being empty
    Omitted,  // the file is not part of the result
};

/// A file or folder on the class path.
struct ClassPathFile {
    std::filesystem::path source;
    std::string target;  // relative to the application's folder, with "/", in UTF-8
    bool isFolder = false;
    Placement placement = Placement::ClassPath;
};

/// Collects the application's jar and, recursively, everything that the Class-Path of its manifest
/// names, each once and in Java's order; then `more`: jars, or folders of jars. Files outside the
/// jar's own folder are placed in "lib". Adds missing entries and entries that are not files to
/// `warnings`. Throws Failure for a corrupt jar.
std::vector<ClassPathFile> CollectClassPath(const JarFile& jar,
                                            const std::vector<std::filesystem::path>& more,
                                            std::vector<std::string>& warnings);

/// Decodes the percent escapes of a relative URL.
std::string DecodedUrl(std::string_view url);

/// Throws Failure unless a path is possible on Windows and as an entry of "Class Path", where ";"
/// separates entries and "%" begins a variable. `origin` is for the message.
void CheckClassPathName(const std::string& target, const std::string& origin);

}  // namespace tarn::tools
