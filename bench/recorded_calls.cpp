#include "bench/recorded_calls.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "base/windows.h"
#include "bench/timed_process.h"
#include "bench/workspace.h"

namespace tarn::bench {

void RunRecorded(const std::wstring& program, const std::wstring& importHook,
                 const std::filesystem::path& file) {
    std::filesystem::remove(file);
    SetEnvironmentVariableW(L"HOOK_TIMES", file.c_str());
    RunTimed(program, Quoted(program), {.library = importHook});
    SetEnvironmentVariableW(L"HOOK_TIMES", nullptr);
}

std::vector<TimedCall> ReadCalls(const std::filesystem::path& file, unsigned thread) {
    std::ifstream in(file);
    std::vector<TimedCall> calls;
    unsigned number = 0;
    TimedCall call;
    while (in >> number >> call.function >> call.nanoseconds)
        if (number == thread) calls.push_back(call);
    if (calls.empty()) throw std::runtime_error("no call was recorded");
    return calls;
}

std::size_t FindCall(const std::vector<TimedCall>& calls, const StageStart& start) {
    int seen = 0;
    const auto found = std::find_if(calls.begin(), calls.end(), [&](const TimedCall& call) {
        return call.function == start.function && ++seen == start.number;
    });
    if (found == calls.end())
        throw std::runtime_error(std::string("not enough calls of ") + start.function);
    return static_cast<std::size_t>(found - calls.begin());
}

}  // namespace tarn::bench
