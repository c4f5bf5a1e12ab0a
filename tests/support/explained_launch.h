#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/installed_application.h"

namespace tarn::test {

/// Where the explanation's own runtime library logs, apart from the launch's.
std::wstring ExplanationLog(const InstalledApplication& app);

/// What `tarn explain --json` says of a launch with these arguments, in the same directory and
/// environment. A failure fails the test, and gives nothing.
std::optional<nlohmann::json> ExplainLaunch(const InstalledApplication& app,
                                            const std::wstring& argumentText);

/// What the user of a launch saw, and how it ended.
struct ObservedLaunch {
    /// The texts of its message boxes and of the dialog that asks for a runtime, in order.
    std::vector<std::string> messages;
    bool askedForRuntime = false;
    std::optional<std::int32_t> exitCode;
};

/// Closes each box of a running launch as it comes, cancels the dialog, and calls `look` again and
/// again until the launch has ended.
template <typename Look>
ObservedLaunch ObserveLaunch(const LaunchedProcess& process, Look look);

/// One look for a box: closes it and notes its text. For `ObserveLaunch`.
void CloseBoxes(const LaunchedProcess& process, ObservedLaunch& observed);

template <typename Look>
ObservedLaunch ObserveLaunch(const LaunchedProcess& process, Look look) {
    ObservedLaunch observed;
    WaitUntil([&] {
        CloseBoxes(process, observed);
        look();
        return process.HasEnded();
    });
    observed.exitCode = process.ExitCode(std::chrono::milliseconds(0));
    return observed;
}

}  // namespace tarn::test
