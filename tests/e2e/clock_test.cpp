// What the clock does to a launch. Only the time stamps in the names of output files depend on it:
// the launcher reads the local time once for both of them, and all of its waits are for events.

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <set>

#include "tests/support/hook_log.h"
#include "tests/support/output_files_fixture.h"
#include "tests/support/paths.h"
#include "tests/support/process_figures.h"
#include "tests/support/test_pictures.h"

namespace tarn::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LaunchClock : public OutputFilesFixture {
  protected:
    void StampNames() {
        settings.Application(L"Output File", app.Path(L"logs\\o_%yyyy-MM-dd'T'HH.mm.ss%.txt"));
        settings.Application(L"Error File", app.Path(L"logs\\e_%yyyy-MM-dd'T'HH.mm.ss%.txt"));
    }

    /// Runs a launch whose calls of `GetLocalTime` return these times.
    std::int32_t RunAt(const std::wstring& times) {
        app.WriteSettings(settings);
        test::Start start = app.StartWith(L'"' + app.Executable() + L'"');
        start.library = GetPaths().importHook;
        start.environment[L"HOOK_CLOCK"] = times;
        start.environment[L"HOOK_LOG"] = HookLogFile(app);
        return LaunchedProcess(start).ExitCode().value_or(kNoExitCode);
    }

    std::set<std::wstring> Logs() const { return FilesBelow(app.Path(L"logs\\")); }
};

TEST_F(LaunchClock, IsReadOnceAndNoOtherClockIs) {
    StampNames();
    settings.Set(L"Display", L"Splash Screen", PicturePath(L"opaque.png"));
    settings.Application(L"Single Instance", L"yes");
    EXPECT_EQ(RunAt(L"2026-03-29T01:59:59.999"), 0);
    std::vector<std::string> clocks;
    for (const HookedCall& each : ReadHookLog(HookLogFile(app))) {
        for (const char* part : {"Time", "Tick", "PerformanceCounter", "time", "clock"}) {
            if (each.function == "GetTimeFormatW") continue;  // formats a time
            if (each.function.find(part) != std::string::npos) clocks.push_back(each.function);
        }
    }
    EXPECT_THAT(clocks, ElementsAre("GetLocalTime"));
}

TEST_F(LaunchClock, ThatIsTurnedBackDuringTheLaunchGivesBothNamesOneInstant) {
    StampNames();
    EXPECT_EQ(RunAt(L"2026-10-25T02:59:59.999 2026-10-25T02:00:00.000 1999-01-01T00:00:00.000"), 0);
    EXPECT_THAT(Logs(), ElementsAre(L"e_2026-10-25T02.59.59.txt", L"o_2026-10-25T02.59.59.txt"));
}

// A launch on each day of the month in which the clocks of Europe go back, one in the hour that
// then comes a second time, and at the limits of the calendar.
TEST_F(LaunchClock, OfEveryDayOfAMonthNamesTheFiles) {
    StampNames();
    std::set<std::wstring> expected;
    const auto run = [&](int year, int month, int day, int hour) {
        wchar_t time[64];
        swprintf(time, std::size(time), L"%04d-%02d-%02dT%02d:30:00.000", year, month, day, hour);
        ASSERT_EQ(RunAt(time), 0) << ToUtf8(time);
        swprintf(time, std::size(time), L"%04d-%02d-%02dT%02d.30.00.txt", year, month, day, hour);
        expected.insert(L"o_" + std::wstring(time));
        expected.insert(L"e_" + std::wstring(time));
        EXPECT_EQ(Logs(), expected);
    };
    constexpr int kDays = 31;
    for (int day = 1; day <= kDays; ++day) run(2026, 10, day, (day * 5) % 24);
    run(2026, 10, 25, 2);
    // The files of the first half past two are opened again, and overwritten without "Append".
    run(2026, 10, 25, 2);
    run(2026, 3, 29, 2);  // skipped in Europe
    run(2028, 2, 29, 23);
    run(2026, 12, 31, 23);
    run(1601, 1, 1, 0);
    run(9999, 12, 31, 23);
}

/// The present offset of the session's time zone from UTC. The launcher cannot have a zone of its
/// own: scripts/environments.sh runs this test in several.
int MinutesFromUtc() {
    TIME_ZONE_INFORMATION zone;
    const DWORD season = GetTimeZoneInformation(&zone);
    LONG bias = zone.Bias;
    if (season == TIME_ZONE_ID_STANDARD) bias += zone.StandardBias;
    if (season == TIME_ZONE_ID_DAYLIGHT) bias += zone.DaylightBias;
    return static_cast<int>(-bias);
}

std::wstring Stamp(const FILETIME& utc, int minutes) {
    constexpr LONGLONG kUnitsOfAMinute = 600'000'000;
    ULARGE_INTEGER units{{utc.dwLowDateTime, utc.dwHighDateTime}};
    units.QuadPart += static_cast<ULONGLONG>(minutes * kUnitsOfAMinute);
    const FILETIME local{units.LowPart, units.HighPart};
    SYSTEMTIME time;
    FileTimeToSystemTime(&local, &time);
    wchar_t text[32];
    swprintf(text, std::size(text), L"o_%04d-%02d-%02dT%02d.%02d", time.wYear, time.wMonth,
             time.wDay, time.wHour, time.wMinute);
    return text;
}

TEST_F(LaunchClock, IsThatOfTheTimeZone) {
    settings.Application(L"Output File", app.Path(L"logs\\o_%yyyy-MM-dd'T'HH.mm%"));
    FILETIME before;
    GetSystemTimeAsFileTime(&before);
    EXPECT_EQ(Run(), 0);
    FILETIME after;
    GetSystemTimeAsFileTime(&after);
    const auto files = Logs();
    ASSERT_EQ(files.size(), 1U);
    std::printf("%d minutes from UTC: %ls\n", MinutesFromUtc(), files.begin()->c_str());
    EXPECT_GE(*files.begin(), Stamp(before, MinutesFromUtc()));
    EXPECT_LE(*files.begin(), Stamp(after, MinutesFromUtc()));
}

}  // namespace
}  // namespace tarn::test
