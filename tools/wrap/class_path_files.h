#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tools/java/jar_file.h"

namespace tarn::tools {

/// A file or folder that the class path needs.
struct ClassPathFile {
    std::filesystem::path source;
    std::string target;  // where it goes below the application's folder, with "/" and UTF-8
    bool isFolder = false;
};

/// The application's jar and all that its manifest's Class-Path names, the Class-Path of those
/// included, each once and in Java's order; then `more`: jars, or folders whose jars are meant.
/// What does not lie below the jar's own folder goes into "lib". Adds to `warnings` what is missing
/// or no file. Throws Failure for a broken jar, and when two files would get one name.
std::vector<ClassPathFile> CollectClassPath(const JarFile& jar,
                                            const std::vector<std::filesystem::path>& more,
                                            std::vector<std::string>& warnings);

/// A relative URL's text with its "%20" and the like decoded.
std::string DecodedUrl(std::string_view url);

/// Throws Failure when a name cannot be a file's on Windows or a class path's entry.
void CheckWindowsName(const std::string& target);

}  // namespace tarn::tools
