#pragma once

#include <string>

namespace tarn::test {

/// The files that the suite tests with. Each is an environment variable, by default relative to the
/// folder of this program (build/<preset>/tests).
struct Paths {
    std::wstring launcher;   ///< TARN_LAUNCHER: launcher.exe
    std::wstring companion;  ///< TARN_COMPANION: tarn.exe
    std::wstring fakeJvms;   ///< TARN_FAKE_JVM_DIR: one folder for each variant of jvm.dll
    std::wstring
        fakeSplashes;  ///< TARN_FAKE_SPLASH_DIR: one folder for each variant of splashscreen.dll
    std::wstring importHook;    ///< TARN_IMPORT_HOOK: the library that counts and fails calls
    std::wstring callOutcomes;  ///< TARN_CALL_OUTCOMES: the outcomes of failed calls
    std::wstring pictures;      ///< TARN_TEST_PICTURES: the pictures of the splash tests
    std::wstring programs;      ///< TARN_TEST_PROGRAMS: small programs that the tests start
    std::wstring runtimes;      ///< TARN_RUNTIMES: real runtimes
    std::wstring applications;  ///< TARN_APPLICATIONS: real Java applications
    std::wstring javaFixtures;  ///< TARN_JAVA_FIXTURES: the jar of the tests' Java classes
};

const Paths& GetPaths();

/// The folder for temporary files, with its names as the file system has them.
std::wstring TemporaryFolder();

/// Whether the tests run under Wine, where some behaviour differs from Windows.
bool IsWine();

}  // namespace tarn::test
