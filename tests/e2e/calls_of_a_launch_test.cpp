// The calls of a launch into the file system and the registry, one by one. Each costs every start
// of every application, so a change that adds one must add it to the lists here; a failed test
// prints the calls of the launch.

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

// Prefixes, so that a function that the launcher does not call today is counted when it does.
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

/// The counted calls of a thread; equal calls in a row are one entry: "RegEnumKeyExW x 3".
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

// The reader of a file with two sections. After the two bounds, which are not set, it lists the
// keys of the section; the others that are set are the path of the runtime, read after the search
// for the per-user file, and the main class.
const Calls kSettings = {
    "GetModuleFileNameW",           "FindResourceW",  "GetPrivateProfileSectionNamesW",
    "GetPrivateProfileStringW x 3", "FindFirstFileW", "GetPrivateProfileStringW x 2",
};
// "Single Instance", whose section does not exist.
const Calls kSingleInstance = {"GetModuleFileNameW", "FindResourceW",
                               "GetPrivateProfileSectionNamesW"};
// The jvm.dll of the configured home is the last one in the search order.
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

TEST_F(CallsOfALaunch, SuppressingTheSplashSavesReadingItsSettings) {
    RunHooked(L"-nosplash");
    EXPECT_EQ(CallsOf(app), kSettings + kSingleInstance + kConfiguredRuntime + kLibrary + kOptions);
}

/// The number of calls that read a value.
int ReadCount(const InstalledApplication& app) {
    int reads = 0;
    for (const HookedCall& call : ReadHookLog(HookLogFile(app))) {
        if (call.function == kValue) ++reads;
    }
    return reads;
}

TEST_F(CallsOfALaunch, EachExistingSectionCostsAFewReads) {
    settings.Set(L"Product Information", L"Product Name", L"Sample");
    settings.Application(L"Failure Check", L"Yes");
    settings.Runtime(L"Virtual Machine Parameters", L"-Da=b");
    RunHooked();
    // 2 for the name of the per-user file; 5 as in every launch; 3 in "Application": type, failure
    // check, list; single instance; splash; class path; 3 more in "Application": embedded jar,
    // output file, list; parameters.
    EXPECT_EQ(ReadCount(app), 2 + 5 + 3 + 1 + 1 + 1 + 3 + 1)
        << testing::PrintToString(CallsOf(app));
}

TEST_F(CallsOfALaunch, AnAdditiveSectionCostsOneReadForEachValue) {
    settings.Set(L"Java Runtime Environment+", L"Virtual Machine Parameters", L"-Da=b");
    RunHooked();
    // 11 values, the 9 of them that the plain section does not contain again; splash; class path.
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
    EndSuccessfully(*process);
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

TEST_F(CallsOfARegistrySearch, EachRuntimeIsReadOnce) {
    settings.Runtime(L"JVM Source", L"only_JDK");
    Add(kJdkRoot, L"17.0.1", L"jdk17");
    // The home, then the four candidates for the library, of which the last one exists.
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

    // A runtime outside the bounds is not opened.
    settings.Runtime(L"Minimum Version", L"25");
    const Calls lastRuntime = {"RegEnumKeyExW x 3", "RegOpenKeyExW", "RegQueryValueExW x 2",
                               "RegCloseKey", "FindFirstFileW x 4"};
    EXPECT_EQ(Run(), before + lastRuntime + after);
}

using CallsOfASecondLaunch = SingleInstanceFixture;

TEST_F(CallsOfASecondLaunch, EndAfterTheHandOff) {
    Script(kOnlyInt);
    const auto first = StartFirst();
    EXPECT_TRUE(StartHooked(app, {}, L"document.txt")->ExitCode().has_value());
    // The section with "Single Instance" is read, too.
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
