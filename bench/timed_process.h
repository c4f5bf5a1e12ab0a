#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace tarn::bench {

struct ProcessTimes {
    double toMark =
        0;  ///< milliseconds from right before CreateProcessW to the stamp that the program left
    double toExit = 0;  ///< milliseconds from the same moment to the end of the process
    double privateKiB =
        0;  ///< private memory while the program was held at its mark; 0 when it was not
    double toSeen = 0;  ///< milliseconds from the same moment until the watch said yes; 0 without
};

/// Asked over and over while the program starts, with the id of its process, until it says yes.
using Watch = std::function<bool(unsigned long processId)>;

/// Where a program under measurement leaves its stamp: what TARN_BENCH_STAMP names.
std::filesystem::path StampFile();

/// Starts `program` with the whole command line and waits for its end. The program leaves its
/// stamp, nanoseconds of the performance counter, in the file that TARN_BENCH_STAMP names. `hold`
/// makes the Java fixture wait there until its memory has been read, and until `watch` has said
/// yes. Throws std::runtime_error when the process fails, ends with another code than 0, does not
/// end, or leaves a stamp that does not lie between its start and its end.
ProcessTimes RunTimed(const std::wstring& program, const std::wstring& commandLine,
                      bool hold = false, const Watch& watch = {});

}  // namespace tarn::bench
