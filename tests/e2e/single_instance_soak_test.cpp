// Many second launches, in sequence and in parallel.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <utility>

#include "tests/support/process_figures.h"
#include "tests/support/single_instance_fixture.h"
#include "tests/support/text.h"

namespace tarn::test {
namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

/// The median, the 99th percentile and the maximum.
std::string DescribeTimes(std::vector<double> times) {
    if (times.empty()) return "none";
    std::sort(times.begin(), times.end());
    char text[64];
    std::snprintf(text, sizeof text, "%.0f ms (99 %%: %.0f ms, all: %.0f ms)",
                  times[times.size() / 2], times[times.size() * 99 / 100], times.back());
    return text;
}

class SingleInstanceSoak : public SingleInstanceFixture {
  protected:
    /// Waits until the hand-offs are over: the worker of the last one may not have ended yet.
    void WaitUntilServed(const LaunchedProcess& first, std::size_t served) {
        // The entry thread, the Java thread and the listener.
        constexpr std::size_t kThreads = 3;
        EXPECT_TRUE(WaitUntil([&] {
            return app.Log().Count("DetachCurrentThread()") == served &&
                   FiguresOf(first.handle()).threads <= kThreads;
        })) << Describe(first);
    }

    /// Everything that can explain a request without an answer.
    std::string Describe(const LaunchedProcess& first) const {
        const InstanceBlock block = InstanceBlock::Open(app.Executable());
        const ProcessFigures figures = FiguresOf(first.handle());
        return (first.HasEnded() ? "first instance ended" : "first instance runs") +
               std::string(block ? ", listener " : ", no block, listener ") +
               std::to_string(block ? block.Number(InstanceBlock::kListenerThread) : 0) +
               (IsListening() ? " listens" : " does not listen") + ", " +
               std::to_string(figures.threads) + " threads, " + std::to_string(figures.handles) +
               " handles, " + std::to_string(CountAtoms()) + " atoms, served " +
               std::to_string(SecondaryCalls().size()) +
               ", last line of the log: " + app.Log().Texts().back();
    }
};

TEST_F(SingleInstanceSoak, ManyLaunchesInARowAreServedOnceAndLeakNothing) {
    // The records that the scripted library keeps of every call would appear as a leak.
    Script(std::string(kOnlyInt) + "forget\nsecondaryMain = return 5");
    const auto first = StartFirst();
    const int launches = SoakCount("TARN_SOAK_HAND_OFFS", 200);
    constexpr int kSettled = 100;
    constexpr int kInterval = 400;
    ProcessFigures before;
    std::size_t atomsBefore = 0;
    std::vector<std::string> expected;
    std::vector<double> times;
    for (int i = 1; i <= launches; ++i) {
        const std::string number = std::to_string(i);
        const auto begin = std::chrono::steady_clock::now();
        ASSERT_EQ(Second(FromUtf8("launch " + number + " \"of " + number + "\"")), 5)
            << "launch " << i << ": " << Describe(*first);
        times.push_back(Milliseconds(std::chrono::steady_clock::now() - begin).count());
        expected.push_back(R"(["launch", ")" + number + R"(", "of )" + number + R"("])");
        if (i != kSettled && i % kInterval != 0 && i != launches) continue;
        WaitUntilServed(*first, static_cast<std::size_t>(i));
        const ProcessFigures now = FiguresOf(first->handle());
        const std::size_t atoms = CountAtoms();
        std::printf("after %d hand-offs: %zu handles, %zu threads, %zu KiB, %zu atoms; each %s\n",
                    i, now.handles, now.threads, now.privateKiB, atoms,
                    DescribeTimes(std::exchange(times, {})).c_str());
        std::fflush(stdout);
        if (i == kSettled) {
            before = now;
            atomsBefore = atoms;
        }
    }
    EXPECT_EQ(SecondaryCalls(), expected);
    EXPECT_EQ(JvmCount(), 1u);
    EXPECT_GT(before.handles, 0u);
    EXPECT_TRUE(WaitUntil([&] { return FiguresOf(first->handle()).handles <= before.handles; }));
    EXPECT_TRUE(WaitUntil([&] { return CountAtoms() <= atomsBefore; })) << CountAtoms();
    // A heap grows by pages.
    EXPECT_LE(FiguresOf(first->handle()).privateKiB, before.privateKiB + 512);
    EndFirst(*first);
}

// Parallel launches may overwrite each other's arguments, and those before the first instance
// listens fail. There is always one JVM, and every process ends.
TEST_F(SingleInstanceSoak, TwentyLaunchesAtOnceCreateOneJvm) {
    constexpr int kRounds = 10;
    constexpr int kLaunches = 20;
    app.WriteSettings(settings);
    for (std::size_t round = 1; round <= kRounds; ++round) {
        const NamedEvent roundMayEnd;
        app.WriteScript("main = wait_event " + roundMayEnd.utf8Name() + "\nmain = exit 9\n" +
                        kOnlyInt + "secondaryMain = return 5");
        std::vector<std::unique_ptr<LaunchedProcess>> launches;
        for (int i = 0; i < kLaunches; ++i) {
            launches.push_back(app.Launch(std::to_wstring(round) + L'-' + std::to_wstring(i)));
        }
        // All but the first instance end by themselves.
        EXPECT_TRUE(WaitUntil(
            [&] {
                return std::count_if(launches.begin(), launches.end(), [](const auto& launch) {
                           return launch->HasEnded();
                       }) == kLaunches - 1;
            },
            2 * kTimeLimit))
            << "round " << round;
        EXPECT_EQ(JvmCount(), round);
        NamedEvent(roundMayEnd.name()).Set();
        int firsts = 0;
        for (const auto& launch : launches) {
            const std::int32_t code = launch->ExitCode().value_or(kNoExitCode);
            EXPECT_TRUE(code == 5 || code == -1 || code == 9) << code;
            if (code == 9) ++firsts;
        }
        EXPECT_EQ(firsts, 1) << "round " << round;
    }
    for (const std::string& call : SecondaryCalls()) EXPECT_THAT(call, testing::HasSubstr("-"));
}

}  // namespace
}  // namespace tarn::test
