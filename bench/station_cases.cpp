// Where the launcher spends its time until JNI_CreateJavaVM: the calls that it makes are noted with
// their time, and the first call of a station ends the one before.
#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "base/windows.h"
#include "bench/bench_case.h"
#include "bench/scripted_runtime.h"
#include "bench/timed_process.h"

namespace tarn::bench {

namespace {

struct NotedCall {
    std::string function;
    double nanoseconds = 0;
};

// Of the entry thread.
std::vector<NotedCall> ReadCalls(const std::filesystem::path& file) {
    std::ifstream in(file);
    std::vector<NotedCall> calls;
    unsigned thread = 0;
    NotedCall call;
    while (in >> thread >> call.function >> call.nanoseconds)
        if (thread == 1) calls.push_back(call);
    return calls;
}

/// The call that a station begins with: the n-th of the function.
struct Landmark {
    const char* station;
    const char* function;
    int number;
};
// The first station, the settings, begins with the first call of all. Settings, single instance,
// splash and options ask for the path of the executable once each; the first file that is looked
// for is the user's own settings file.
constexpr const char* kFirstStage = "command line and settings";
constexpr const char* kLibrary = "library";
constexpr Landmark kLandmarks[] = {
    {"single instance", "GetModuleFileNameW", 2},
    {"search", "FindFirstFileW", 2},
    {"native paths", "SetEnvironmentVariableW", 1},
    {"splash", "GetModuleFileNameW", 3},
    {kLibrary, "LoadLibraryW", 1},
    {"options", "GetModuleFileNameW", 4},
    {nullptr, "CreateThread", 1},  // from here on the JVM is created
};

std::size_t Find(const std::vector<NotedCall>& calls, const Landmark& landmark) {
    int seen = 0;
    const auto found = std::find_if(calls.begin(), calls.end(), [&](const NotedCall& call) {
        return call.function == landmark.function && ++seen == landmark.number;
    });
    if (found == calls.end())
        throw std::runtime_error(std::string("not enough calls of ") + landmark.function);
    return static_cast<std::size_t>(found - calls.begin());
}

// Microseconds for each station, and for all of them without the library, which every host loads.
Sample Stages(const std::vector<NotedCall>& calls) {
    if (calls.empty()) throw std::runtime_error("no call was noted");
    double start = calls.front().nanoseconds;
    const char* station = kFirstStage;
    Sample sample;
    double own = 0;
    for (const Landmark& landmark : kLandmarks) {
        const double end = calls[Find(calls, landmark)].nanoseconds;
        if (end < start) throw std::runtime_error("the stations are not in their order");
        sample.push_back((end - start) / 1e3);
        if (station != kLibrary) own += sample.back();
        start = end;
        station = landmark.station;
    }
    sample.push_back(own);
    return sample;
}

}  // namespace

std::vector<Case> StationCases(const Workspace& workspace) {
    const InstalledApp app = InstallScriptedApp(workspace, L"stations");
    const std::wstring program = app.program.wstring();
    const std::wstring hook = workspace.importHook.wstring();
    const std::filesystem::path times = workspace.scratch / L"call_times.txt";
    Case result;
    result.name = "The stations of a launch";
    result.quantities = {kFirstStage};
    for (const Landmark& landmark : kLandmarks)
        if (landmark.station != nullptr) result.quantities.push_back(landmark.station);
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
