// Many launches, in sequence and in parallel, leave no resources behind.

#include <cstdio>
#include <vector>

#include "tests/support/fake_jvm_fixture.h"
#include "tests/support/named_event.h"
#include "tests/support/paths.h"
#include "tests/support/process_figures.h"
#include "tests/support/test_pictures.h"

namespace tarn::test {
namespace {

// The exit code after a failed assertion of Wine (EXCEPTION_WINE_ASSERTION).
constexpr std::int32_t kWineAssertion = -0x7FFFFEFF;

constexpr char kMainCall[] = "CallStaticVoidMethod(com/example/Main.main(";

/// An application whose launch uses resources of one kind.
struct CycledApplication {
    explicit CycledApplication(std::wstring_view name)
        : app(name), settings(app.StandardSettings()) {
        app.AddRuntime();
        // Temporary files are created here.
        app.environment[L"TEMP"] = app.AddFolder(L"temp");
        app.environment[L"TMP"] = app.environment[L"TEMP"];
    }

    InstalledApplication app;
    SettingsText settings;
    std::int32_t exitCode = 0;
    std::size_t launches = 0;
};

std::vector<std::unique_ptr<CycledApplication>> ApplicationsToCycle() {
    std::vector<std::unique_ptr<CycledApplication>> all;
    const auto add = [&](std::wstring_view name, std::string_view script,
                         std::int32_t code) -> CycledApplication& {
        all.push_back(std::make_unique<CycledApplication>(name));
        all.back()->app.WriteScript(script);
        all.back()->exitCode = code;
        return *all.back();
    };
    add(L"plain", "", 0);
    add(L"splash", "main = exit 3", 3)
        .settings.Set(L"Display", L"Splash Screen", PicturePath(L"opaque.png"));
    CycledApplication& redirected = add(L"redirected", "main = print line\\n\nmain = exit 4", 4);
    redirected.settings.Application(L"Output File", redirected.app.Path(L"logs\\out.txt"));
    redirected.settings.Application(L"Error File", redirected.app.Path(L"logs\\error.txt"));
    add(L"single", "main = exit 5", 5).settings.Application(L"Single Instance", L"yes");
    add(L"service", "main = print done", 0).settings.Application(L"Application Type", L"service");
    for (const auto& each : all) each->app.WriteSettings(each->settings);
    return all;
}

TEST(LaunchSoak, ManyLaunchesInARowLeakNothing) {
    const auto applications = ApplicationsToCycle();
    // When a process ends, Wine terminates its threads while they talk to Wine's server, and
    // occasionally an assertion of Wine fails. Such a launch is repeated.
    int repeated = 0;
    const auto launchEach = [&](int round) {
        for (const auto& each : applications) {
            const std::wstring arguments = std::to_wstring(round) + L" \"x y\"";
            const auto process = each->app.Launch(arguments);
            ++each->launches;
            auto code = process->ExitCode();
            if (IsWine() && code == kWineAssertion) {
                ++repeated;
                ++each->launches;
                code = each->app.Launch(arguments)->ExitCode();
            }
            ASSERT_EQ(code, each->exitCode) << round;
        }
    };
    const auto files = [&] {
        std::vector<std::set<std::wstring>> names;
        for (const auto& each : applications) names.push_back(FilesBelow(each->app.directory));
        return names;
    };
    // One-time resources exist after the first two.
    for (int round = -2; round < 0; ++round) launchEach(round);
    const auto filesBefore = files();
    const SystemFigures before = SystemFiguresNow();
    const ProcessFigures ownBefore = FiguresOf(GetCurrentProcess());

    const auto print = [&](int launches) {
        const SystemFigures now = SystemFiguresNow();
        std::printf(
            "%d launches: %zu to %zu processes, %zu to %zu windows, %zu to %zu handles of "
            "the parent, %d repeated\n",
            launches, before.processes, now.processes, before.windows, now.windows,
            ownBefore.handles, FiguresOf(GetCurrentProcess()).handles, repeated);
        std::fflush(stdout);
    };
    const int wanted = SoakCount("TARN_SOAK_LAUNCHES", 50);
    int launches = 0;
    while (launches < wanted) {
        launchEach(launches);
        if (HasFatalFailure()) return;
        launches += static_cast<int>(applications.size());
        if (launches % 250 == 0) print(launches);
    }

    EXPECT_EQ(files(), filesBefore);
    EXPECT_TRUE(WaitUntil([&] {
        const SystemFigures now = SystemFiguresNow();
        return now.processes <= before.processes && now.windows <= before.windows;
    }));
    // Under Wine the number is the size of the handle table, which doubles when it grows.
    EXPECT_LE(FiguresOf(GetCurrentProcess()).handles, 2 * ownBefore.handles);
    EXPECT_LE(repeated, 1 + launches / 100);
    print(launches);
    for (const auto& each : applications) {
        EXPECT_THAT(each->app.Log().Violations(), testing::IsEmpty());
        const std::size_t ran = each->app.Log().Count(kMainCall);
        EXPECT_LE(ran, each->launches);
        EXPECT_GE(ran + static_cast<std::size_t>(repeated), each->launches);
    }
}

TEST(LaunchSoak, FiftyApplicationsStartInParallel) {
    constexpr int kApplications = 50;
    NamedEvent mayEnd;
    std::vector<std::unique_ptr<InstalledApplication>> applications;
    std::vector<std::unique_ptr<LaunchedProcess>> processes;
    for (int i = 0; i < kApplications; ++i) {
        auto& app = *applications.emplace_back(
            std::make_unique<InstalledApplication>(L"app" + std::to_wstring(i)));
        app.AddRuntime();
        app.WriteScript("main = wait_event " + mayEnd.utf8Name() + "\nmain = exit " +
                        std::to_string(100 + i));
        auto settings = app.StandardSettings();
        settings.Application(L"Single Instance", L"yes");
        app.WriteSettings(settings);
    }
    for (int i = 0; i < kApplications; ++i) {
        processes.push_back(
            applications[static_cast<std::size_t>(i)]->Launch(L"of " + std::to_wstring(i)));
    }
    for (std::size_t i = 0; i < kApplications; ++i) {
        EXPECT_TRUE(applications[i]->Log().WaitFor(kMainCall, 4 * kTimeLimit)) << i;
        EXPECT_THAT(applications[i]->Log().After(kMainCall),
                    testing::EndsWith("[\"of\", \"" + std::to_string(i) + "\"])"));
    }
    // All of them at the same time.
    for (const auto& process : processes) EXPECT_FALSE(process->HasEnded());
    mayEnd.Set();
    for (std::size_t i = 0; i < kApplications; ++i) {
        EXPECT_EQ(processes[i]->ExitCode(2 * kTimeLimit), 100 + static_cast<std::int32_t>(i));
        EXPECT_THAT(applications[i]->Log().Violations(), testing::IsEmpty());
        EXPECT_EQ(applications[i]->Log().Count("JNI_CreateJavaVM("), 1u);
    }
}

}  // namespace
}  // namespace tarn::test
