// Every allocation of the launcher can fail: the process then ends immediately and silently with
// the code for that, and every settings file is either unchanged or completely written. A sample of
// the allocations, or all when TARN_EVERY_CALL is set (scripts/fail_every_call.sh).

#include <algorithm>
#include <map>

#include "tests/failing_calls/call_points.h"
#include "tests/import_hook/fallible_functions.h"
#include "tests/support/hook_log.h"
#include "tests/support/jre_not_found_fixture.h"
#include "tests/support/splash_fixture.h"
#include "tests/support/test_pictures.h"

namespace tarn::test {
namespace {

constexpr auto kOutOfMemoryCode = static_cast<std::int32_t>(0x80004005);
constexpr std::size_t kSample = 12;

/// The calls that allocate memory.
std::vector<CallPoint> Allocations(const std::vector<HookedCall>& calls) {
    std::vector<CallPoint> points;
    for (const HookedCall& each : calls) {
        if (!import_hook::IsAllocation(each.function)) continue;
        points.push_back({each.function, {}, each.role, each.number, {}, each.number});
    }
    return points;
}

/// A sample, spaced evenly, with the first and the last call; all of them if TARN_EVERY_CALL is
/// set.
std::vector<CallPoint> Sample(const std::vector<CallPoint>& all) {
    if (GetEnvironmentVariableW(L"TARN_EVERY_CALL", nullptr, 0) != 0) return all;
    std::vector<CallPoint> some;
    const std::size_t count = std::min(kSample, all.size());
    for (std::size_t i = 0; i < count; ++i) {
        some.push_back(all[count > 1 ? i * (all.size() - 1) / (count - 1) : 0]);
    }
    return some;
}

class OutOfMemory : public SplashFixture {
  protected:
    std::vector<CallPoint> AllocationsOf(const wchar_t* arguments) {
        const auto process = StartHooked(app, L"", arguments);
        LetMainEnd();
        EXPECT_EQ(process->ExitCode(), 0);
        return Allocations(ReadHookLog(HookLogFile(app)));
    }

    void FailEach(const wchar_t* arguments) {
        app.WriteSettings(settings);
        const std::string before = ReadFileBytes(app.SettingsFile());
        const auto all = AllocationsOf(arguments);
        EXPECT_GT(all.size(), 10U);
        RecordProperty("allocations", static_cast<int>(all.size()));
        for (const CallPoint& point : Sample(all)) {
            // An existing output file saves allocations.
            DeleteFileW(app.Path(L"out_x.txt").c_str());
            const auto process =
                StartHooked(app, point.FailureSpec(ERROR_NOT_ENOUGH_MEMORY), arguments);
            EXPECT_EQ(process->ExitCode(), kOutOfMemoryCode) << point.Text();
            EXPECT_EQ(ReadFileBytes(app.SettingsFile()), before) << point.Text();
        }
    }
};

TEST_F(OutOfMemory, EndsALaunch) {
    app.AddFile(L"lib\\a.jar");
    settings.Set(L"Class Path", L"Class Path", L"C:\\app.jar;lib\\*.jar");
    settings.Runtime(L"Virtual Machine Parameters", L"-Xmx50p -Da=%OS%");
    settings.Runtime(L"Library Path", L"C:\\native").Runtime(L"System Path", L"C:\\system");
    settings.Application(L"Cmd", L"third").Application(L"Output File", app.Path(L"out_%'x'%.txt"));
    FailEach(L"first \"second one\"");
}

TEST_F(OutOfMemory, EndsALaunchWithSplash) {
    ShowTestPicture(L"opaque.png");
    FailEach(L"");
}

class OutOfMemoryForABox : public FakeJvmFixture {
  protected:
    /// Makes each allocation for the text of the launch's error box fail: no box appears, and the
    /// launch ends with the result of the failure that the box would have reported.
    void FailEach() {
        {
            app.WriteSettings(settings);
            const auto process = StartHooked(app);
            EXPECT_NE(CloseErrorBox(*process), L"");
            EXPECT_EQ(process->ExitCode(), -1);
        }
        const std::vector<CallPoint> points = AllocationsOfTheBox();
        EXPECT_FALSE(points.empty());
        for (const CallPoint& point : points) {
            const auto process = StartHooked(app, point.FailureSpec(ERROR_NOT_ENOUGH_MEMORY));
            EXPECT_EQ(process->ExitCode(), -1) << point.Text();
        }
    }

  private:
    /// The first one precedes the loading of the first text.
    std::vector<CallPoint> AllocationsOfTheBox() const {
        std::vector<HookedCall> calls;
        for (HookedCall& each : ReadHookLog(HookLogFile(app))) {
            const bool loads = each.function == "LoadStringW";
            if (loads || import_hook::IsAllocation(each.function)) calls.push_back(std::move(each));
        }
        const auto firstText = std::find_if(calls.begin(), calls.end(), [](const HookedCall& each) {
            return each.function == "LoadStringW";
        });
        if (firstText == calls.begin() || firstText == calls.end()) return {};
        return Allocations({firstText - 1, calls.end()});
    }
};

TEST_F(OutOfMemoryForABox, OmitsTheBoxOfAPlainText) {
    settings.Runtime(L"Main Class", L"");
    FailEach();
}

TEST_F(OutOfMemoryForABox, OmitsTheBoxOfALibraryThatCannotBeLoaded) {
    app.AddFile(L"jre\\bin\\server\\jvm.dll", "no library");
    FailEach();
}

TEST_F(OutOfMemoryForABox, OmitsTheBoxOfAJvmThatCannotBeCreated) {
    app.WriteScript("create = -1\n");
    FailEach();
}

class OutOfMemoryRemembering : public JreNotFoundFixture {
  protected:
    /// A launch in which the user chooses a runtime, as far as it gets.
    std::int32_t Browse(const std::wstring& failures) {
        WriteFileBytes(PerUserFile(), kBefore);
        DeleteFileW(HookLogFile(app).c_str());
        process = StartHooked(app, failures);
        bool browsed = false;
        WaitUntil([&] {
            for (const HWND each : WindowsOf(process->id(), L"#32770")) {
                if (IsWindowVisible(each)) AnswerOne(each, browsed);
            }
            return process->HasEnded();
        });
        return End();
    }

    void AnswerOne(HWND window, bool& browsed) {
        if (WindowText(window) == L"JRE Not Found") {
            if (!browsed) PressButton(window, kBrowse);
            if (browsed && IsWindowEnabled(window)) PressButton(window, kOk);
            browsed = true;
        } else if (SelectInBrowser(process->id(), window, app.Path(L"jre"),
                                   std::chrono::seconds(2))) {
            PressButton(window, kOk);
            WaitUntil([&] { return !IsWindow(window) || process->HasEnded(); });
        }
    }

    static constexpr char kBefore[] = "[Other]\r\nKey=value\r\n";
};

TEST_F(OutOfMemoryRemembering, LeavesThePerUserFileComplete) {
    app.AddRuntime();
    app.WriteSettings(settings);
    CreateFolders(PerUserFile().substr(0, PerUserFile().rfind(L'\\')));
    EXPECT_EQ(Browse(L""), 0);
    const std::string after = ReadFileBytes(PerUserFile());
    EXPECT_NE(after, kBefore);
    EXPECT_THAT(after, testing::StartsWith(kBefore));

    auto all = Allocations(ReadHookLog(HookLogFile(app)));
    // The calls before the dialog are those of any launch.
    all.erase(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(all.size() / 2));
    for (const CallPoint& point : Sample(all)) {
        EXPECT_EQ(Browse(point.FailureSpec(ERROR_NOT_ENOUGH_MEMORY)), kOutOfMemoryCode)
            << point.Text();
        EXPECT_THAT(ReadFileBytes(PerUserFile()), testing::AnyOf(kBefore, after)) << point.Text();
    }
}

}  // namespace
}  // namespace tarn::test
