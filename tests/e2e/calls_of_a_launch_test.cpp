// Which of its calls into the file system and the registry a launch makes, one by one: each costs
// every start of every application, so none comes back unseen. A change that needs another one
// puts it into the lists here; the failed test shows the calls that were made.

#include <algorithm>
#include <iterator>

#include "tests/support/fake_jvm_fixture.h"
#include "tests/support/hook_log.h"
#include "tests/support/registered_runtimes_fixture.h"
#include "tests/support/single_instance_fixture.h"
#include "tests/support/splash_fixture.h"

namespace tarn::test {
namespace {

using Calls = std::vector<std::string>;

// By the beginning of their names, so that a function that the launcher does not call today is
// counted on the day that it does.
constexpr std::string_view kCounted[] = {
    "CopyFile",     "CreateDirectory", "CreateFile",   "DeleteFile",  "FindFirst",
    "FindNext",     "FindResource",    "GetFile",      "GetFullPath", "GetModuleFile",
    "GetPrivatePr", "GetTemp",         "LoadLibrary",  "MapView",     "MoveFile",
    "OpenFile",     "ReadFile",        "Reg",          "SearchPath",  "SetCurrentDirectory",
    "SetFile",      "WriteFile",       "WritePrivate", "_w",          "fopen",
};

bool IsCounted(const std::string& function) {
    return !function.starts_with("Register") &&
           std::any_of(std::begin(kCounted), std::end(kCounted),
                       [&](std::string_view start) { return function.starts_with(start); });
}

/// The counted calls of a thread, equal ones in a row as one: "RegEnumKeyExW x 3".
Calls CallsOf(const InstalledApplication& app, unsigned role = 1) {
    Calls calls;
    int inARow = 0;
    std::string last;
    const auto flush = [&] {
        if (inARow > 0) calls.push_back(last + (inARow > 1 ? " x " + std::to_string(inARow) : ""));
        inARow = 0;
    };
    for (const HookedCall& call : ReadHookLog(HookLogFile(app))) {
        if (call.role != role || !IsCounted(call.function)) continue;
        if (call.function != last) flush();
        last = call.function;
        ++inARow;
    }
    flush();
    return calls;
}

Calls operator+(Calls all, const Calls& more) {
    all.insert(all.end(), more.begin(), more.end());
    return all;
}

constexpr char kValue[] = "GetPrivateProfileStringW";

// What the settings' reader does with a file of two sections. After the two bounds, which are not
// there, it has the section's keys listed; the others that are there are the runtime's place, after
// the look for the user's own file, and the main class.
const Calls kSettings = {
    "GetModuleFileNameW",           "FindResourceW",  "GetPrivateProfileSectionNamesW",
    "GetPrivateProfileStringW x 3", "FindFirstFileW", "GetPrivateProfileStringW x 2",
};
// Whether the application is to run once: its section is not there.
const Calls kSingleInstance = {"GetModuleFileNameW", "FindResourceW",
                               "GetPrivateProfileSectionNamesW"};
// The configured home has its jvm.dll where the search looks last.
const Calls kConfiguredRuntime = {"FindFirstFileW x 4"};
const Calls kNoSplash = {"GetModuleFileNameW", kValue};
const Calls kLibrary = {"LoadLibraryW"};
// Class path and parameters.
const Calls kOptions = {"GetModuleFileNameW", "FindResourceW", "GetPrivateProfileSectionNamesW",
                        "GetPrivateProfileStringW x 2"};

class CallsOfALaunch : public FakeJvmFixture {
  protected:
    void RunHooked(std::wstring_view argumentText = {}) {
        app.WriteSettings(settings);
        EXPECT_EQ(StartHooked(app, {}, argumentText)->ExitCode(), 0);
    }
};

TEST_F(CallsOfALaunch, OfAnApplicationThatNamesItsRuntime) {
    RunHooked();
    EXPECT_EQ(CallsOf(app),
              kSettings + kSingleInstance + kConfiguredRuntime + kNoSplash + kLibrary + kOptions);
}

TEST_F(CallsOfALaunch, SuppressingTheSplashSavesTheLookForIt) {
    RunHooked(L"-nosplash");
    EXPECT_EQ(CallsOf(app), kSettings + kSingleInstance + kConfiguredRuntime + kLibrary + kOptions);
}

/// How often values, and lists of keys, were asked for.
int ReadCount(const InstalledApplication& app) {
    int looks = 0;
    for (const HookedCall& call : ReadHookLog(HookLogFile(app))) {
        if (call.function == kValue) ++looks;
    }
    return looks;
}

TEST_F(CallsOfALaunch, SectionsThatAreThereCostAFewLooksEach) {
    settings.Set(L"Product Information", L"Product Name", L"Sample");
    settings.Application(L"Failure Check", L"Yes");
    settings.Runtime(L"Virtual Machine Parameters", L"-Da=b");
    RunHooked();
    // 2 for the name of the user's own file; 5 as in any launch; 3 into "Application": type,
    // failure check, list; single instance; splash; class path; 3 into "Application" once more:
    // embedded jar, output file, list; parameters.
    EXPECT_EQ(ReadCount(app), 2 + 5 + 3 + 1 + 1 + 1 + 3 + 1)
        << testing::PrintToString(CallsOf(app));
}

TEST_F(CallsOfALaunch, AnAdditiveSectionCostsLooksForItsOwnValues) {
    settings.Set(L"Java Runtime Environment+", L"Virtual Machine Parameters", L"-Da=b");
    RunHooked();
    // 11 values, the 9 of them that are not in the plain section once more; splash; class path.
    EXPECT_EQ(ReadCount(app), 11 + 9 + 1 + 1) << testing::PrintToString(CallsOf(app));
}

TEST_F(CallsOfALaunch, APatternInTheClassPathCostsOneCallForAMatch) {
    for (const wchar_t* const name : {L"lib\\a.jar", L"lib\\b.jar", L"lib\\c.jar"}) {
        app.AddFile(name);
    }
    settings.Set(L"Class Path", L"Class Path", L"C:\\one.jar;lib\\*.jar");
    RunHooked();
    const Calls options = {"GetModuleFileNameW",
                           "FindResourceW",
                           "GetPrivateProfileSectionNamesW",
                           kValue,
                           "FindFirstFileW",
                           "FindNextFileW x 3",
                           kValue};
    EXPECT_EQ(CallsOf(app),
              kSettings + kSingleInstance + kConfiguredRuntime + kNoSplash + kLibrary + options);
}

using CallsOfASplashLaunch = SplashFixture;

TEST_F(CallsOfASplashLaunch, TheDecoderIsLoadedByTheSplashsOwnThread) {
    ShowTestPicture(L"opaque.png");
    app.WriteSettings(settings);
    const auto process = StartHooked(app);
    WaitForSplash(*process);
    EndWell(*process);
    const Calls splash = {"GetModuleFileNameW", "GetPrivateProfileStringW x 3", "FindFirstFileW"};
    EXPECT_EQ(CallsOf(app),
              kSettings + kSingleInstance + kConfiguredRuntime + splash + kLibrary + kOptions);
    EXPECT_EQ(CallsOf(app, 2), Calls{"LoadLibraryExW"});
}

class CallsOfARegistrySearch : public RegisteredRuntimesFixture {
  protected:
    Calls Run() {
        DeleteFileW(HookLogFile(app).c_str());
        app.WriteSettings(settings);
        EXPECT_EQ(StartHooked(app)->ExitCode(), 0);
        return CallsOf(app);
    }
};

TEST_F(CallsOfARegistrySearch, EachRuntimeIsLookedAtOnce) {
    settings.Runtime(L"JVM Source", L"only_JDK");
    Add(kJdkRoot, L"17.0.1", L"jdk17");
    // The home, and the four places of which the library lies in the last.
    const Calls runtime = {"RegEnumKeyExW", "RegOpenKeyExW", "RegQueryValueExW x 2", "RegCloseKey",
                           "FindFirstFileW x 4"};
    // None beside the launcher (2), none below the current directory (5).
    const Calls search = {"GetModuleFileNameW", "FindFirstFileW x 7", "RegOpenKeyExW"};
    const Calls before = kSettings + kSingleInstance + search;
    // The other root; then the library of the chosen runtime.
    const Calls end = {"RegEnumKeyExW", "RegCloseKey", "RegOpenKeyExW", "FindFirstFileW x 4"};
    const Calls after = end + kNoSplash + kLibrary + kOptions;
    EXPECT_EQ(Run(), before + runtime + after);

    Add(kJdkRoot, L"21", L"jdk21");
    Add(kJdkRoot, L"25", L"jdk25");
    EXPECT_EQ(Run(), before + runtime + runtime + runtime + after);

    // What the bounds reject is not opened.
    settings.Runtime(L"Minimum Version", L"25");
    const Calls onlyTheLast = {"RegEnumKeyExW x 3", "RegOpenKeyExW", "RegQueryValueExW x 2",
                               "RegCloseKey", "FindFirstFileW x 4"};
    EXPECT_EQ(Run(), before + onlyTheLast + after);
}

using CallsOfASecondLaunch = SingleInstanceFixture;

TEST_F(CallsOfASecondLaunch, EndWithTheHandOff) {
    Script(kOnlyInt);
    const auto first = StartFirst();
    EXPECT_TRUE(StartHooked(app, {}, L"document.txt")->ExitCode().has_value());
    // The section that says so is looked into as well.
    const Calls calls = {"GetModuleFileNameW",
                         "FindResourceW",
                         "GetPrivateProfileSectionNamesW",
                         "GetPrivateProfileStringW x 4",
                         "FindFirstFileW",
                         "GetPrivateProfileStringW x 4",
                         "GetModuleFileNameW",
                         "FindResourceW",
                         "GetPrivateProfileSectionNamesW",
                         kValue,
                         "GetModuleFileNameW",
                         "CreateFileMappingW",
                         "MapViewOfFile"};
    EXPECT_EQ(CallsOf(app), calls);
    EndFirst(*first);
}

}  // namespace
}  // namespace tarn::test
