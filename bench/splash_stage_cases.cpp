// The stages of the launcher's own splash, from the start of its thread until its picture has been
// painted, while the other threads load and create a JVM.
#include <stdexcept>

#include "bench/bench_case.h"
#include "bench/recorded_calls.h"
#include "bench/splash_application.h"
#include "bench/workspace.h"

namespace tarn::bench {

namespace {

constexpr const char* kThreadStart = "start of the thread";
// The window class is registered first. The calls after the last stage wait for messages.
constexpr StageStart kStageStarts[] = {
    {"window class", "GetModuleHandleW"},
    {"load of GDI+", "LoadLibraryExW"},
    {"start of GDI+", "GdiplusStartup"},
    {"decoding", "GdipCreateBitmapFromFile"},
    {"size of the screen", "GetSystemMetrics"},
    {"bitmap for the screen", "GetDC"},
    {"drawing", "GdipCreateFromHDC"},
    {"window", "CreateWindowExW"},
    {"showing", "ShowWindow"},
    {"painting", "UpdateWindow"},
    {nullptr, "GetMessageW"},
};

// Milliseconds of each stage, and their sum.
Sample Stages(const std::vector<TimedCall>& entryCalls, const std::vector<TimedCall>& calls) {
    const double begin = entryCalls[FindCall(entryCalls, {nullptr, "CreateThread"})].nanoseconds;
    double start = begin;
    Sample sample;
    for (const StageStart& each : kStageStarts) {
        const double end = calls[FindCall(calls, each)].nanoseconds;
        if (end < start) throw std::runtime_error("the stages are not in their order");
        sample.push_back((end - start) / 1e6);
        start = end;
    }
    sample.push_back((start - begin) / 1e6);
    return sample;
}

}  // namespace

std::vector<Case> SplashStageCases(const Workspace& workspace) {
    const std::wstring program =
        InstallSplashApp(workspace, L"splash_stages", SplashKind::Own).wstring();
    const std::wstring hook = workspace.importHook.wstring();
    const std::filesystem::path times = workspace.scratch / L"splash_times.txt";
    Case result;
    result.name = "Java 21: the stages of the splash";
    result.rounds = 10;
    result.warmUpRounds = 1;
    result.quantities = {kThreadStart};
    for (const StageStart& each : kStageStarts)
        if (each.stage != nullptr) result.quantities.push_back(each.stage);
    result.quantities.push_back("all");
    result.contenders = {{"ms", [=] {
                              RunRecorded(program, hook, times);
                              return Stages(ReadCalls(times, kEntryThread),
                                            ReadCalls(times, kFirstCreatedThread));
                          }}};
    return {result};
}

}  // namespace tarn::bench
