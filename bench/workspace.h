#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tarn::bench {

/// Where the programs under measurement lie, and a folder of our own to lay out applications in.
struct Workspace {
    std::filesystem::path launcher;    ///< launcher.exe
    std::filesystem::path tools;       ///< folder of bare_host.exe, stamp_jvm.dll, bench.jar
    std::filesystem::path importHook;  ///< the tests' library that notes a program's calls
    std::filesystem::path
        runtimes;  ///< folder of the Java runtimes "11", "17", "21", "25"; may be empty
    std::filesystem::path scratch;  ///< made empty at start, removed at the end
};

struct InstalledApp {
    std::filesystem::path program;  ///< the launcher's copy
    std::filesystem::path folder;
};

/// Copies the launcher to `scratch\name\name.exe` and writes the INI text (UTF-16 with mark) beside
/// it.
InstalledApp InstallApp(const Workspace& workspace, const std::wstring& name,
                        const std::wstring& iniText);

/// The runtime's jvm.dll: its server one. Throws std::runtime_error when there is none.
std::filesystem::path JvmLibrary(const std::filesystem::path& runtimeHome);

/// In double quotes.
std::wstring Quoted(const std::wstring& word);

}  // namespace tarn::bench
