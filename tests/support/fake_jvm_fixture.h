#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/installed_application.h"
#include "tests/support/text.h"
#include "tests/support/windows_of_process.h"

namespace tarn::test {

/// A test with the scripted jvm.dll: an installed application with a runtime `jre` and default
/// settings. The destructor fails the test if the launcher has violated a rule of JNI.
class FakeJvmFixture : public testing::Test {
  protected:
    FakeJvmFixture() : settings(app.StandardSettings()) { app.AddRuntime(); }

    void TearDown() override { EXPECT_THAT(app.Log().Violations(), testing::IsEmpty()); }

    /// Writes `settings`, starts the application and waits for its end. Returns its exit code, or
    /// `kNoExitCode` after the time limit (which fails the test).
    std::int32_t Run(std::wstring_view argumentText = {}) {
        return Start(argumentText)->ExitCode().value_or(kNoExitCode);
    }

    /// Writes `settings` and starts the application.
    std::unique_ptr<LaunchedProcess> Start(std::wstring_view argumentText = {}) {
        app.WriteSettings(settings);
        return app.Launch(argumentText);
    }

    /// The arguments of `main` in the log's notation: `["a", "b"]`.
    std::string MainArguments() const {
        std::string line =
            app.Log().After("CallStaticVoidMethod(com/example/Main.main([Ljava/lang/String;)V, ");
        // The bracket at the end of the call.
        if (!line.empty()) line.pop_back();
        return line;
    }

    /// Starts the application, expects an error box with this text, presses its button and waits
    /// for the end. Returns the exit code.
    std::int32_t RunWithErrorBox(std::wstring_view text) {
        const auto process = Start();
        EXPECT_EQ(ToUtf8(CloseErrorBox(*process)), ToUtf8(text));
        return process->ExitCode().value_or(kNoExitCode);
    }

    static constexpr std::int32_t kNoExitCode = -559038737;

    InstalledApplication app;
    SettingsText settings;
};

}  // namespace tarn::test
