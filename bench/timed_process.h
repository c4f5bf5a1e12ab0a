#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace tarn::bench {

struct ProcessTimes {
    /// Milliseconds from the call of CreateProcessW to the stamp that the program wrote.
    double toMark = 0;
    double toExit = 0;  ///< milliseconds from the same moment to the end of the process
    double toSeen =
        0;  ///< milliseconds from the same moment until the watch returned true; 0 without
    // While the program was held at its mark, otherwise 0.
    double privateKiB = 0;      ///< private memory
    double peakPrivateKiB = 0;  ///< its maximum until then, read every 10 ms
    double libraries = 0;       ///< loaded modules without the program itself
};

/// Called repeatedly with the process id while the program starts, until it returns true.
using Watch = std::function<bool(unsigned long processId)>;

/// The file that TARN_BENCH_STAMP names, to which a measured program writes its stamp.
std::filesystem::path StampFile();

struct RunOptions {
    /// The Java side waits at its mark until its memory has been read and `watch` returned true.
    bool hold = false;
    Watch watch{};
    /// A library that is injected into the process before its first instruction.
    std::wstring library{};
    /// Milliseconds between two calls of `watch`.
    unsigned long watchEveryMs = 1;
};

/// Starts `program` with the complete command line and waits for its end. The program writes its
/// stamp, nanoseconds of the performance counter, to `StampFile`. Throws std::runtime_error if the
/// process cannot be started, does not end, exits with a code other than 0, or writes a stamp
/// outside its lifetime.
ProcessTimes RunTimed(const std::wstring& program, const std::wstring& commandLine,
                      const RunOptions& options = {});

/// Starts `program` without standard handles and waits for its end. Throws std::runtime_error like
/// `RunTimed`.
void RunToEnd(const std::wstring& program, const std::wstring& commandLine);

struct InstalledApp;

/// Starts the application with the arguments. Returns the milliseconds from the start of the
/// process to JNI_CreateJavaVM, where the scripted runtime writes the stamp.
double ToCreateJavaVm(const InstalledApp& app, const std::wstring& arguments = {});

}  // namespace tarn::bench
