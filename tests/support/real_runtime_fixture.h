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

/// The home of one of the real runtimes, without a backslash at its end; fails the test when it is
/// not there (scripts/fetch_runtimes.py fetches them).
std::wstring RuntimeHome(std::string_view version);

/// Puts a runtime's files into another folder, which is made.
void PutRuntime(const std::wstring& from, const std::wstring& to);

/// A test with a real Java runtime: an installed application whose settings run
/// `fixture.Application` from the jar of the tests' Java classes.
class RealRuntimeFixture : public testing::Test {
  protected:
    RealRuntimeFixture();

    /// To be called before the first start, unless the test says itself where the runtime is.
    void UseRuntime(std::string_view version);

    /// Writes `settings`, starts the application and waits for its end. No value: it did not end,
    /// which has failed the test.
    std::optional<std::int32_t> Run(std::wstring_view argumentText = {});
    std::unique_ptr<LaunchedProcess> Start(std::wstring_view argumentText = {});

    /// What the last start has reported so far.
    JavaReport Report() const { return JavaReport(reportFile_); }
    std::string StandardOutput() const { return ReadFileBytes(app.OutputFile()); }
    std::string StandardError() const { return ReadFileBytes(app.ErrorFile()); }

    /// A file that is not there yet, for the fixtures to wait for or to make.
    std::wstring FreshFile(std::wstring_view name) const { return app.Path(name); }

    InstalledApplication app;
    SettingsText settings;
    std::wstring home;     ///< of the runtime in use
    std::wstring jvmPath;  ///< the jvm.dll that the default of "JVM Type" chooses there

  private:
    std::wstring reportFile_;
};

/// The same for each of several runtimes; the suite is instantiated with `kAllRuntimes`, or with
/// the versions that matter.
class EachRuntimeFixture : public RealRuntimeFixture,
                           public testing::WithParamInterface<const char*> {
  protected:
    EachRuntimeFixture() { UseRuntime(GetParam()); }
};

inline const auto kAllRuntimes = testing::Values("11", "17", "21", "25");

/// The tests are then named `Java/Suite.Test/17`.
inline std::string RuntimeName(const testing::TestParamInfo<const char*>& info) {
    return info.param;
}

}  // namespace tarn::test
