// Many second launches, in sequence and in parallel.

#include <algorithm>
#include <cstdio>

#include "tests/support/process_figures.h"
#include "tests/support/single_instance_fixture.h"
#include "tests/support/text.h"

namespace tarn::test {
namespace {

class SingleInstanceSoak : public SingleInstanceFixture {};

TEST_F(SingleInstanceSoak, ManyLaunchesInARowAreServedOnceAndLeakNothing) {
    // The records that the scripted library keeps of every call would appear as a leak.
    Script(std::string(kOnlyInt) + "forget\nsecondaryMain = return 5");
    const auto first = StartFirst();
    const int launches = SoakCount("TARN_SOAK_HAND_OFFS", 200);
    constexpr int kSettled = 100;
    // The worker of the last launch may not have ended yet.
    const auto wait = [&](int served, std::size_t threads) {
        EXPECT_TRUE(WaitUntil([&] {
            return app.Log().Count("DetachCurrentThread()") == static_cast<std::size_t>(served) &&
                   FiguresOf(first->handle()).threads <= threads;
        })) << FiguresOf(first->handle()).threads
            << " threads";
    };
    ProcessFigures before;
    std::vector<std::string> expected;
    for (int i = 1; i <= launches; ++i) {
        const std::string number = std::to_string(i);
        ASSERT_EQ(Second(FromUtf8("launch " + number + " \"of " + number + "\"")), 5)
            << "launch " << i << ", served before: " << SecondaryCalls().size()
            << ", last line of the log: " << app.Log().Texts().back();
        expected.push_back(R"(["launch", ")" + number + R"(", "of )" + number + R"("])");
        if (i == kSettled) {
            // The entry thread, the Java thread and the listener.
            wait(i, 3);
            before = FiguresOf(first->handle());
        }
    }
    wait(launches, before.threads);
    EXPECT_EQ(SecondaryCalls(), expected);
    EXPECT_EQ(JvmCount(), 1u);
    EXPECT_GT(before.handles, 0u);
    EXPECT_TRUE(WaitUntil([&] { return FiguresOf(first->handle()).handles <= before.handles; }));

    const ProcessFigures after = FiguresOf(first->handle());
    std::printf(
        "%d hand-offs: from the %dth on %zu to %zu handles, %zu to %zu threads, "
        "%zu to %zu KiB\n",
        launches, kSettled, before.handles, after.handles, before.threads, after.threads,
        before.privateKiB, after.privateKiB);
    EXPECT_LE(after.handles, before.handles);
    // A heap grows by pages.
    EXPECT_LE(after.privateKiB, before.privateKiB + 512);
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
