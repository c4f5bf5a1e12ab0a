#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarn {

class ErrorReporter;

/// Files that replace Java's standard streams. Environment variables are expanded, time stamps are
/// not. An empty name leaves the stream unchanged.
struct OutputFiles {
    std::wstring outputFile;
    bool outputAppend = false;
    std::wstring errorFile;
    bool errorAppend = false;
};

/// Whether a launch takes place, or is only predicted and must change no file.
enum class LaunchKind { Real, Predicted };

/// The start options of the Java side of a launch. Made by `BuildOptions` and not changed later.
struct JvmOptions {
    /// The JVM's options in their order, in the thread's ANSI code page. An option can be empty.
    std::vector<std::string> ansiOptions;
    /// Stack size of the Java thread in bytes, from the last "-Xss"; 0 means the runtime's
    /// default.
    std::uint64_t javaThreadStackSize = 0;
    OutputFiles outputFiles;
    /// The arguments of `main`.
    std::vector<std::wstring> arguments;
    /// The last of the JVM's options is that of "Fast Start".
    bool hasArchive = false;
};

/// Makes the options of a launch. The order of the JVM's options is fixed: `ansiLibraryPathOption`
/// (from `PrepareNativePaths`; none when it is empty), the class path, the "Virtual Machine
/// Parameters", the archive of "Fast Start". The arguments are those of the command line, then
/// those of "Cmd".
///
/// Called after `jvm.dll` has been loaded, because a missing class path is reported after a library
/// that cannot be loaded. Without a class path, or when the settings file cannot be located,
/// nothing is read from the settings, and the launch continues with the library path and the
/// command line.
JvmOptions BuildOptions(LaunchKind kind, const ErrorReporter& errors,
                        const std::wstring& jvmLibraryPath, std::string&& ansiLibraryPathOption,
                        std::vector<std::wstring>&& commandLineArguments);

}  // namespace tarn
