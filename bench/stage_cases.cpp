// The stages of a launch until JNI_CreateJavaVM, on the entry thread.
#include <stdexcept>

#include "bench/bench_case.h"
#include "bench/recorded_calls.h"
#include "bench/workspace.h"

namespace tarn::bench {

namespace {

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

// Microseconds of each stage, and of all stages but the library's load, which every host makes.
Sample Stages(const std::vector<TimedCall>& calls) {
    double start = calls.front().nanoseconds;
    const char* stage = kFirstStage;
    Sample sample;
    double own = 0;
    for (const StageStart& each : kStageStarts) {
        const double end = calls[FindCall(calls, each)].nanoseconds;
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
    const std::wstring program = InstallScriptedApp(workspace, L"stages").program.wstring();
    const std::wstring hook = workspace.importHook.wstring();
    const std::filesystem::path times = workspace.scratch / L"call_times.txt";
    Case result;
    result.name = "The stages of a launch";
    result.quantities = {kFirstStage};
    for (const StageStart& each : kStageStarts)
        if (each.stage != nullptr) result.quantities.push_back(each.stage);
    result.quantities.push_back("all but the library");
    result.contenders = {{"microseconds", [=] {
                              RunRecorded(program, hook, times);
                              return Stages(ReadCalls(times, kEntryThread));
                          }}};
    return {result};
}

}  // namespace tarn::bench
