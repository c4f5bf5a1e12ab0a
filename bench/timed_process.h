#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace tarn::bench {

struct ProcessTimes {
    /// Milliseconds from right before CreateProcessW to the stamp that the program left.
    double toMark = 0;
    double toExit = 0;  ///< milliseconds from the same moment to the end of the process
    double toSeen = 0;  ///< milliseconds from the same moment until the watch said yes; 0 without
    // While the program was held at its mark; 0 when it was not.
    double privateKiB = 0;      ///< private memory
    double peakPrivateKiB = 0;  ///< the most that it was until then, every 10 ms
    double libraries = 0;       ///< loaded modules, the program itself left out
};

/// Asked over and over while the program starts, with the id of its process, until it says yes.
using Watch = std::function<bool(unsigned long processId)>;

/// Where a program under measurement leaves its stamp: what TARN_BENCH_STAMP names.
std::filesystem::path StampFile();

struct RunOptions {
    /// The Java fixture waits at its mark until its memory has been read and `watch` has said yes.
    bool hold = false;
    Watch watch;
    /// A library that is put into the process before its first instruction.
    std::wstring library;
};

/// Starts `program` with the whole command line and waits for its end. The program leaves its
/// stamp, nanoseconds of the performance counter, in the file that TARN_BENCH_STAMP names. Throws
/// std::runtime_error when the process fails, ends with another code than 0, does not end, or
/// leaves a stamp that does not lie between its start and its end.
ProcessTimes RunTimed(const std::wstring& program, const std::wstring& commandLine,
                      const RunOptions& options = {});

}  // namespace tarn::bench
