#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tarn::bench {

/// The paths of the measured programs, and a folder for the applications that are laid out.
struct Workspace {
    std::filesystem::path launcher;    ///< launcher.exe
    std::filesystem::path tools;       ///< folder of bare_host.exe, stamp_jvm.dll, bench.jar
    std::filesystem::path importHook;  ///< the tests' library that records a program's calls
    std::filesystem::path runtimes;    ///< folder of the Java runtimes "11" to "25"; may be empty
    std::filesystem::path
        applications;               ///< folder of the applications of scripts/applications.lock
    std::filesystem::path scratch;  ///< emptied at the start, removed at the end
};

struct InstalledApp {
    std::filesystem::path program;  ///< the launcher's copy
    std::filesystem::path folder;
};

/// Copies the launcher to `scratch\name\name.exe` and writes its INI file, UTF-16 with byte-order
/// mark, beside it.
InstalledApp InstallApp(const Workspace& workspace, const std::wstring& name,
                        const std::wstring& iniText);

/// Creates `scratch\scripted_jre`, a runtime whose jvm.dll only records the time, unless it
/// exists. Returns its home.
std::filesystem::path ScriptedRuntime(const Workspace& workspace);

/// An application on that runtime, with `moreSettings` appended to its INI file.
InstalledApp InstallScriptedApp(const Workspace& workspace, const std::wstring& name,
                                const std::wstring& classPath = L"C:\\none.jar",
                                const std::wstring& moreSettings = {});

/// The runtime's server jvm.dll. Throws std::runtime_error if it does not exist.
std::filesystem::path JvmLibrary(const std::filesystem::path& runtimeHome);

/// Deletes a file or a folder with all it contains, if it exists; read-only files too, as a JVM
/// leaves its archives. Throws std::filesystem::filesystem_error on failure.
void RemoveTree(const std::filesystem::path& path);

/// In double quotes.
std::wstring Quoted(const std::wstring& word);

}  // namespace tarn::bench
