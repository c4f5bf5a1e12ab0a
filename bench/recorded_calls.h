#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace tarn::bench {

/// A call that the import hook recorded.
struct TimedCall {
    std::string function;
    double nanoseconds = 0;  ///< of the performance counter, when the call began
};

/// The thread that the system created, and the first thread that the program created.
inline constexpr unsigned kEntryThread = 1;
inline constexpr unsigned kFirstCreatedThread = 2;

/// Runs the program with its complete command line and the import hook, which writes the times of
/// the calls to `file` when the process ends.
void RunRecorded(const std::wstring& program, const std::wstring& importHook,
                 const std::filesystem::path& file);

/// Reads the calls of one thread, in their order.
std::vector<TimedCall> ReadCalls(const std::filesystem::path& file, unsigned thread);

/// The call that begins a stage: the n-th call of the function on its thread. The stage lasts until
/// the next one begins; the last one has no name.
struct StageStart {
    const char* stage;
    const char* function;
    int number = 1;
};

/// Returns the index of that call. Throws std::runtime_error when there is none.
std::size_t FindCall(const std::vector<TimedCall>& calls, const StageStart& start);

}  // namespace tarn::bench
