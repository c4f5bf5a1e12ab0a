#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/installed_application.h"
#include "tests/support/java_report.h"
#include "tests/support/text.h"
#include "tests/support/windows_of_process.h"

namespace tarn::test {

/// The home of a real runtime, without a trailing backslash; fails the test when it does not exist
/// (scripts/fetch_runtimes.py downloads the runtimes).
std::wstring RuntimeHome(std::string_view version);

/// Links or copies the files of a runtime into another folder, which is created.
void InstallRuntime(const std::wstring& from, const std::wstring& to);

/// A test with a real Java runtime: an installed application whose settings run
/// `fixture.Application` from the jar of the tests' Java classes.
class RealRuntimeFixture : public testing::Test {
  protected:
    RealRuntimeFixture();

    /// Called before the first start, unless the test locates the runtime itself.
    void UseRuntime(std::string_view version);

    /// Writes `settings`, starts the application and waits for its end. After the time limit the
    /// test fails and there is no value.
    std::optional<std::int32_t> Run(std::wstring_view argumentText = {});
    std::unique_ptr<LaunchedProcess> Start(std::wstring_view argumentText = {});

    /// The report of the last start so far.
    JavaReport Report() const { return JavaReport(reportFile_); }
    std::string StandardOutput() const { return ReadFileBytes(app.OutputFile()); }
    std::string StandardError() const { return ReadFileBytes(app.ErrorFile()); }

    /// The path of a file that does not exist yet, for the fixtures to wait for or to create.
    std::wstring NewFilePath(std::wstring_view name) const { return app.Path(name); }

    InstalledApplication app;
    SettingsText settings;
    std::wstring home;     ///< the home of the runtime in use
    std::wstring jvmPath;  ///< its jvm.dll for the default "JVM Type"

  private:
    std::wstring reportFile_;
};

/// The same for each of several runtimes; the suite is instantiated with `kAllRuntimes`, or with
/// the versions that the behaviour depends on.
class EachRuntimeFixture : public RealRuntimeFixture,
                           public testing::WithParamInterface<const char*> {
  protected:
    EachRuntimeFixture() { UseRuntime(GetParam()); }
};

inline const auto kAllRuntimes = testing::Values("11", "17", "21", "25");

/// The names of the tests are then `Java/Suite.Test/17`.
inline std::string RuntimeName(const testing::TestParamInfo<const char*>& info) {
    return info.param;
}

}  // namespace tarn::test
