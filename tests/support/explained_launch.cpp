#include "tests/support/explained_launch.h"

#include <gtest/gtest.h>

#include "tests/support/paths.h"
#include "tests/support/text.h"
#include "tests/support/windows_of_process.h"

namespace tarn::test {

namespace {

constexpr wchar_t kDialogClass[] = L"#32770";
// The control ids of the text of a message box and of the dialog.
constexpr int kMessageText = 0xFFFF;
constexpr int kAskText = 203;

std::wstring TextOfBox(HWND box, bool asks) {
    for (HWND each : Children(box)) {
        const int id = GetDlgCtrlID(each) & 0xFFFF;
        const bool isText = asks ? id == kAskText : id == kMessageText;
        if (isText && WindowClass(each) != L"Button") return WindowText(each);
    }
    return {};
}

}  // namespace

std::wstring ExplanationLog(const InstalledApplication& app) {
    return app.LogFile() + L".explained";
}

std::optional<nlohmann::json> ExplainLaunch(const InstalledApplication& app,
                                            const std::wstring& argumentText) {
    Start start = app.StartWith(L"");
    start.program = GetPaths().companion;
    start.commandLine = L'"' + start.program + L"\" explain --json \"" + app.Executable() +
                        L"\" -- " + argumentText;
    start.environment[L"FAKE_JVM_LOG"] = ExplanationLog(app);
    start.outputFile = app.LogFile() + L".json";
    start.errorFile = app.LogFile() + L".errors";
    const LaunchedProcess process(start);
    EXPECT_TRUE(process.started());
    EXPECT_EQ(process.ExitCode(), 0) << ReadFileBytes(start.errorFile);
    const std::string text = ReadFileBytes(start.outputFile);
    auto report = nlohmann::json::parse(text, nullptr, false);
    if (report.is_discarded()) {
        ADD_FAILURE() << "no report: " << text;
        return std::nullopt;
    }
    return report;
}

void CloseBoxes(const LaunchedProcess& process, ObservedLaunch& observed) {
    for (HWND box : WindowsOf(process.id(), kDialogClass)) {
        if (!IsWindowVisible(box)) continue;
        const bool asks = WindowText(box) == L"JRE Not Found";
        observed.messages.push_back(ToUtf8(TextOfBox(box, asks)));
        observed.askedForRuntime = observed.askedForRuntime || asks;
        PressButton(box, asks ? IDCANCEL : IDOK);
        WaitUntil([&] { return !IsWindow(box); });
    }
}

}  // namespace tarn::test
