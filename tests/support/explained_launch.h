#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/installed_application.h"

namespace tarn::test {

/// The log file of the runtime library that `tarn explain` loads, separate from that of the launch.
std::wstring ExplanationLog(const InstalledApplication& app);

/// Returns the output of `tarn explain --json` for a launch with these arguments, in the same
/// directory and environment. A failure fails the test and returns null.
std::optional<nlohmann::json> ExplainLaunch(const InstalledApplication& app,
                                            const std::wstring& argumentText);

/// What the user of a launch sees, and how it ends.
struct ObservedLaunch {
    /// The texts of its message boxes and of the dialog "JRE Not Found", in order.
    std::vector<std::string> messages;
    bool askedForRuntime = false;
    std::optional<std::int32_t> exitCode;
};

/// Closes each box of a running launch when it appears, cancels the dialog, and calls `check`
/// repeatedly until the launch has ended.
template <typename Check>
ObservedLaunch ObserveLaunch(const LaunchedProcess& process, Check check);

/// Checks once for a box, closes it and records its text. For `ObserveLaunch`.
void CloseBoxes(const LaunchedProcess& process, ObservedLaunch& observed);

template <typename Check>
ObservedLaunch ObserveLaunch(const LaunchedProcess& process, Check check) {
    ObservedLaunch observed;
    WaitUntil([&] {
        CloseBoxes(process, observed);
        check();
        return process.HasEnded();
    });
    observed.exitCode = process.ExitCode(std::chrono::milliseconds(0));
    return observed;
}

}  // namespace tarn::test
