// Many second launches, one after another and all at once.

#include <algorithm>

#include "tests/support/single_instance_test.h"
#include "tests/support/text.h"

// Last: they need the types of windows.h.
#include <tlhelp32.h>
#include <winternl.h>

namespace tarn::test {
namespace {

class SingleInstanceSoakTest : public SingleInstanceTest {
  protected:
    // GetProcessHandleCount is always 0 under Wine; the list of processes has the number.
    static ULONG HandlesOf(const LaunchedProcess& process) {
        std::vector<std::byte> list(1 << 20);
        EXPECT_EQ(NtQuerySystemInformation(SystemProcessInformation, list.data(),
                                           static_cast<ULONG>(list.size()), nullptr),
                  0);
        for (const std::byte* at = list.data();;) {
            const auto* const entry = reinterpret_cast<const SYSTEM_PROCESS_INFORMATION*>(at);
            if (entry->UniqueProcessId == ULongToHandle(process.id())) return entry->HandleCount;
            if (entry->NextEntryOffset == 0) return 0;
            at += entry->NextEntryOffset;
        }
    }

    static int ThreadsOf(const LaunchedProcess& process) {
        const FileHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
        THREADENTRY32 entry{};
        entry.dwSize = sizeof entry;
        int count = 0;
        for (BOOL more = Thread32First(snapshot.get(), &entry); more;
             more = Thread32Next(snapshot.get(), &entry)) {
            if (entry.th32OwnerProcessID == process.id()) ++count;
        }
        return count;
    }
};

TEST_F(SingleInstanceSoakTest, ThreeHundredLaunchesInARowAreAllServedOnce) {
    Script(std::string(kOnlyInt) + "secondaryMain = return 5");
    const auto first = StartFirst();
    constexpr int kLaunches = 300;
    constexpr int kSettled = 50;
    int threads = 0;
    ULONG handles = 0;
    std::vector<std::string> expected;
    for (int i = 1; i <= kLaunches; ++i) {
        const std::string number = std::to_string(i);
        ASSERT_EQ(Second(FromUtf8("launch " + number + " \"of " + number + "\"")), 5) << i;
        expected.push_back(R"(["launch", ")" + number + R"(", "of )" + number + R"("])");
        if (i == kSettled) {
            // The worker of the last launch may be about to end.
            EXPECT_TRUE(WaitUntil([&] {
                return app.Log().Count("DetachCurrentThread()") == kSettled &&
                       ThreadsOf(*first) <= 3;
            })) << ThreadsOf(*first);
            threads = ThreadsOf(*first);
            handles = HandlesOf(*first);
        }
    }
    EXPECT_EQ(SecondaryCalls(), expected);
    EXPECT_EQ(Machines(), 1u);
    EXPECT_GT(handles, 0u);
    EXPECT_TRUE(WaitUntil([&] { return ThreadsOf(*first) <= threads; })) << ThreadsOf(*first);
    EXPECT_TRUE(WaitUntil([&] { return HandlesOf(*first) <= handles; }))
        << HandlesOf(*first) << " handles, " << handles << " before";
    EndFirst(*first);
}

// Launches at the same moment may overwrite each other's arguments, and those that come before the
// first instance listens fail. What holds is that there is one JVM, and that everybody ends.
TEST_F(SingleInstanceSoakTest, TwentyLaunchesAtOnceGiveOneJvm) {
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
        // All but the first instance end on their own.
        EXPECT_TRUE(WaitUntil(
            [&] {
                return std::count_if(launches.begin(), launches.end(), [](const auto& launch) {
                           return launch->HasEnded();
                       }) == kLaunches - 1;
            },
            2 * kPatience))
            << "round " << round;
        EXPECT_EQ(Machines(), round);
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
