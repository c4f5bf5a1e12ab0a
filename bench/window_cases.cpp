// What users feel: from the start of the process to the application's first window, with the
// launcher and with the runtime's javaw.exe, without and with class-data archives.
#include <memory>

#include "bench/bench_case.h"
#include "bench/screen.h"
#include "bench/timed_process.h"
#include "bench/window_application.h"
#include "bench/workspace.h"

namespace tarn::bench {

namespace {

// The real applications take longer and show the same as the sample; a first start writes an
// archive, which takes seconds.
constexpr int kApplicationRounds = 4;
constexpr int kFirstStartRounds = 4;
constexpr int kWarmUpRounds = 1;  // writes the archives of the later starts

// How often the screen is read. Each reading takes time that the application then lacks.
constexpr unsigned long kWatchEveryMs = 8;

struct JavaVersion {
    const wchar_t* version;
    double limit;       // of a fast start against javaw.exe
    bool hasFastStart;  // otherwise the archive is there before the first start
};
constexpr JavaVersion kVersions[] = {{L"17", 0.65, false}, {L"21", 0.65, true}, {L"25", 0.7, true}};

constexpr double kFirstStartLimit = 1.03;

constexpr const char* kOpened = "to WINDOW_OPENED, ms";
constexpr const char* kPixel = "to the first pixel, ms";
constexpr const char* kEnd = "WINDOW_OPENED to the end of the process, ms";
constexpr const char* kFirstOpened = "first start to WINDOW_OPENED, ms";
constexpr const char* kFirstPixel = "first start to the first pixel, ms";
constexpr const char* kFirstEnd = "first start, WINDOW_OPENED to the end of the process, ms";
constexpr const char* kSecondEnd = "second start, WINDOW_OPENED to the end of the process, ms";
constexpr const char* kSecondOpened = "second start to WINDOW_OPENED, ms";
constexpr const char* kSecondPixel = "second start to the first pixel, ms";

constexpr const char* kLauncher = "launcher";
constexpr const char* kFastStart = "launcher, fast start";
constexpr const char* kJavaw = "javaw.exe";
constexpr const char* kJavawFast = "javaw.exe, same options";

struct Way {
    const char* name;
    StartWay way;
};
constexpr Way kWays[] = {{kLauncher, StartWay::Launcher},
                         {kFastStart, StartWay::LauncherFast},
                         {kJavaw, StartWay::Javaw},
                         {kJavawFast, StartWay::JavawFast}};

// Read before the first of the measured applications starts.
const Screen& EmptyScreen() {
    static const Screen screen;
    return screen;
}

// The times to WINDOW_OPENED and to the first pixel, and from WINDOW_OPENED to the end.
Sample ToWindow(const WindowStarts& starts, StartWay way) {
    const CommandLine line = starts.Prepare(way);
    const Screen& screen = EmptyScreen();
    RunOptions options;
    options.hold = true;
    options.watch = [&screen](unsigned long process) { return screen.ShowsPixelOf(process); };
    options.watchEveryMs = kWatchEveryMs;
    const ProcessTimes times = RunTimed(line.program, line.text, options);
    starts.CheckArchive(way);
    return {times.toMark, times.toSeen, times.toExit - times.toMark};
}

Case LaterStarts(const Workspace& workspace, const JavaVersion& java,
                 const WindowApplication& application, const std::string& name) {
    const auto starts = std::make_shared<WindowStarts>(workspace, java.version, application);
    Case result;
    result.name = name + ": process start to the window of " + application.name;
    result.quantities = {kOpened, kPixel, kEnd};
    result.warmUpRounds = kWarmUpRounds;
    if (application.folder != nullptr) result.rounds = kApplicationRounds;
    for (const Way& way : kWays)
        result.contenders.push_back(
            {way.name, [starts, kind = way.way] { return ToWindow(*starts, kind); }});
    for (const char* const quantity : {kOpened, kPixel}) {
        result.budgets.push_back(
            {quantity, kFastStart, kJavaw, Budget::Kind::RatioAtMost, java.limit});
        result.budgets.push_back({quantity, kLauncher, kJavaw, Budget::Kind::Ratio, 0});
        result.budgets.push_back({quantity, kJavawFast, kJavaw, Budget::Kind::Ratio, 0});
    }
    return result;
}

// Two starts in succession, as a user makes them after the installation. Without an archive one
// start is like another.
Sample FirstAndSecond(const WindowStarts& starts, StartWay way) {
    if (way == StartWay::LauncherFast) starts.ForgetArchives();
    Sample sample = ToWindow(starts, way);
    const Sample second = way == StartWay::LauncherFast ? ToWindow(starts, way) : sample;
    sample.insert(sample.end(), second.begin(), second.end());
    return sample;
}

Case FirstStarts(const Workspace& workspace, const JavaVersion& java, const std::string& name) {
    const auto starts = std::make_shared<WindowStarts>(workspace, java.version, kSample);
    Case result;
    result.name = name + ": first and second start to the window of " + kSample.name;
    result.quantities = {kFirstOpened,  kFirstPixel,  kFirstEnd,
                         kSecondOpened, kSecondPixel, kSecondEnd};
    result.rounds = kFirstStartRounds;
    result.warmUpRounds = kWarmUpRounds;
    for (const Way& way : {kWays[1], kWays[2]})
        result.contenders.push_back(
            {way.name, [starts, kind = way.way] { return FirstAndSecond(*starts, kind); }});
    for (const char* const quantity : {kFirstOpened, kFirstPixel})
        result.budgets.push_back(
            {quantity, kFastStart, kJavaw, Budget::Kind::RatioAtMost, kFirstStartLimit});
    for (const char* const quantity : {kSecondOpened, kSecondPixel})
        result.budgets.push_back(
            {quantity, kFastStart, kJavaw, Budget::Kind::RatioAtMost, java.limit});
    return result;
}

}  // namespace

std::vector<Case> WindowCases(const Workspace& workspace) {
    std::vector<Case> cases;
    for (const JavaVersion& java : kVersions) {
        const std::wstring version = java.version;
        const std::string name = "Java " + std::string(version.begin(), version.end());
        for (const WindowApplication* application : {&kSample, &kDatabaseManager, &kDocumentTool})
            cases.push_back(LaterStarts(workspace, java, *application, name));
        if (java.hasFastStart) cases.push_back(FirstStarts(workspace, java, name));
    }
    return cases;
}

}  // namespace tarn::bench
