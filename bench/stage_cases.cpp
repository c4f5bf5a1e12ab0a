// The stages of a launch until JNI_CreateJavaVM. The import hook records the launcher's calls with
// their times; the first call of a stage ends the previous stage.
#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "base/windows.h"
#include "bench/bench_case.h"
#include "bench/timed_process.h"
#include "bench/workspace.h"

namespace tarn::bench {

namespace {

struct TimedCall {
    std::string function;
    double nanoseconds = 0;
};

// The calls of the entry thread.
std::vector<TimedCall> ReadCalls(const std::filesystem::path& file) {
    std::ifstream in(file);
    std::vector<TimedCall> calls;
    unsigned thread = 0;
    TimedCall call;
    while (in >> thread >> call.function >> call.nanoseconds)
        if (thread == 1) calls.push_back(call);
    return calls;
}

/// The call that begins a stage: the n-th call of the function.
struct StageStart {
    const char* stage;
    const char* function;
    int number;
};
// The first stage begins with the first call. Settings, single instance, splash and options query
// the executable's path once each; the first file searched for is the per-user settings file.
constexpr const char* kFirstStage = "command line and settings";
constexpr const char* kLibrary = "library";
constexpr StageStart kStageStarts[] = {
    {"single instance", "GetModuleFileNameW", 2},
    {"search", "FindFirstFileW", 2},
    {"native paths", "SetEnvironmentVariableW", 1},
    {"splash", "GetModuleFileNameW", 3},
    {kLibrary, "LoadLibraryW", 1},
    {"options", "GetModuleFileNameW", 4},
    {nullptr, "CreateThread", 1},  // from here on the JVM is created
};

std::size_t Find(const std::vector<TimedCall>& calls, const StageStart& start) {
    int seen = 0;
    const auto found = std::find_if(calls.begin(), calls.end(), [&](const TimedCall& call) {
        return call.function == start.function && ++seen == start.number;
    });
    if (found == calls.end())
        throw std::runtime_error(std::string("not enough calls of ") + start.function);
    return static_cast<std::size_t>(found - calls.begin());
}

// Microseconds of each stage, and of all stages but the library's load, which every host makes.
Sample Stages(const std::vector<TimedCall>& calls) {
    if (calls.empty()) throw std::runtime_error("no call was recorded");
    double start = calls.front().nanoseconds;
    const char* stage = kFirstStage;
    Sample sample;
    double own = 0;
    for (const StageStart& each : kStageStarts) {
        const double end = calls[Find(calls, each)].nanoseconds;
        if (end < start) throw std::runtime_error("the stages are not in their order");
        sample.push_back((end - start) / 1e3);
        if (stage != kLibrary) own += sample.back();
        start = end;
        stage = each.stage;
    }
    sample.push_back(own);
    return sample;
}

}  // namespace

std::vector<Case> StageCases(const Workspace& workspace) {
    const InstalledApp app = InstallScriptedApp(workspace, L"stages");
    const std::wstring program = app.program.wstring();
    const std::wstring hook = workspace.importHook.wstring();
    const std::filesystem::path times = workspace.scratch / L"call_times.txt";
    Case result;
    result.name = "The stages of a launch";
    result.quantities = {kFirstStage};
    for (const StageStart& each : kStageStarts)
        if (each.stage != nullptr) result.quantities.push_back(each.stage);
    result.quantities.push_back("all but the library");
    result.contenders = {{"microseconds", [=] {
                              std::filesystem::remove(times);
                              SetEnvironmentVariableW(L"HOOK_TIMES", times.c_str());
                              RunTimed(program, Quoted(program), {false, {}, hook});
                              SetEnvironmentVariableW(L"HOOK_TIMES", nullptr);
                              return Stages(ReadCalls(times));
                          }}};
    return {result};
}

}  // namespace tarn::bench
