// When the splash is on the screen, the launcher's own and the runtime's, and what it costs the
// start of main. A bare host that shows an empty window gives the cost of any window.
#include "bench/bench_case.h"
#include "bench/screen.h"
#include "bench/splash_application.h"
#include "bench/timed_process.h"
#include "bench/workspace.h"

namespace tarn::bench {

namespace {

constexpr const char* kToSplash = "to splash, ms";
constexpr const char* kToMain = "to main, ms";
constexpr int kRounds = 10;

// The Java fixture opens no window, so any that can be seen is the splash.
bool ShowsWindow(unsigned long process) {
    return FirstVisibleWindow(process) != nullptr;
}

Sample ToSplash(const std::wstring& program, const std::wstring& commandLine) {
    return {RunTimed(program, commandLine, {.hold = true, .watch = ShowsWindow}).toSeen};
}

constexpr const char* kNone = "no splash";
constexpr const char* kOwn = "own window";
constexpr const char* kNative = "the runtime's";
constexpr const char* kBareHost = "bare host";
constexpr const char* kWindowHost = "bare host with an empty window";

struct SplashContender {
    const char* name;
    const wchar_t* program;
    SplashKind kind;
};
constexpr SplashContender kSplashes[] = {
    {kNone, L"splash_none", SplashKind::None},
    {kOwn, L"splash_own", SplashKind::Own},
    {kNative, L"splash_native", SplashKind::Native},
};

}  // namespace

std::vector<Case> SplashCases(const Workspace& workspace) {
    Case visible;
    visible.name = "Java 21: process start to the splash";
    visible.quantities = {kToSplash};
    visible.rounds = kRounds;
    Case cost;
    cost.name = "Java 21: what a splash costs the start of main";
    cost.quantities = {kToMain};
    cost.rounds = kRounds;
    for (const SplashContender& splash : kSplashes) {
        const std::wstring program =
            InstallSplashApp(workspace, splash.program, splash.kind).wstring();
        cost.contenders.push_back(
            {splash.name, [program] { return Sample{RunTimed(program, Quoted(program)).toMark}; }});
        if (splash.kind != SplashKind::None)
            visible.contenders.push_back(
                {splash.name, [program] { return ToSplash(program, Quoted(program)); }});
    }
    for (const char* const name : {kBareHost, kWindowHost}) {
        const std::wstring host =
            (workspace.tools / (name == kBareHost ? L"bare_host.exe" : L"window_host.exe"))
                .wstring();
        const std::wstring line =
            Quoted(host) + L" " +
            Quoted(JvmLibrary(workspace.runtimes / kSplashRuntime).wstring()) + L" 0 bench.Stamp " +
            Quoted(L"-Djava.class.path=" + (workspace.tools / L"bench.jar").wstring() + L";");
        cost.contenders.push_back(
            {name, [host, line] { return Sample{RunTimed(host, line).toMark}; }});
        if (name == kWindowHost)
            visible.contenders.push_back({name, [host, line] { return ToSplash(host, line); }});
    }
    visible.budgets = {{kToSplash, kOwn, kNative, Budget::Kind::RatioAtMost, 0.8},
                       {kToSplash, kWindowHost, kNative, Budget::Kind::Ratio, 0}};
    cost.budgets = {{kToMain, kOwn, kWindowHost, Budget::Kind::RatioAtMost, 1.05},
                    {kToMain, kOwn, kNone, Budget::Kind::Ratio, 0},
                    {kToMain, kNative, kNone, Budget::Kind::Ratio, 0},
                    {kToMain, kWindowHost, kBareHost, Budget::Kind::Ratio, 0}};
    return {visible, cost};
}

}  // namespace tarn::bench
