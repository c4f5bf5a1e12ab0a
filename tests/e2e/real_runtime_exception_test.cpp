// The dialog "Java Exception" with the traces of real Java runtimes.

#include <string>

#include "resources/ids.h"
#include "tests/support/real_runtime_fixture.h"

namespace tarn::test {
namespace {

using testing::StartsWith;

class RealRuntimeException : public EachRuntimeFixture {
  protected:
    RealRuntimeException() {
        settings.Runtime(L"Main Class", L"fixture.Failing");
        settings.Application(L"Failure Check", L"Yes");
    }

    /// Starts the application, which fails, and waits for the dialog; null when none appears.
    HWND OpenDialog(std::wstring_view furtherArguments) {
        process_ = Start(L'"' + TracePath() + L"\" " + std::wstring(furtherArguments));
        const HWND dialog = WaitForWindow(*process_, L"#32770");
        EXPECT_NE(dialog, nullptr);
        EXPECT_EQ(dialog != nullptr ? WindowText(dialog) : L"", L"Java Exception");
        return dialog;
    }

    std::wstring TracePath() const { return app.Path(L"trace.txt"); }
    /// Java's own trace, in UTF-8.
    std::string Trace() const { return ReadFileBytes(TracePath()); }
    static std::wstring ShownTrace(HWND dialog) {
        return WindowText(Child(dialog, IDC_EXCEPTION_TRACE));
    }

    std::unique_ptr<LaunchedProcess> process_;
};
INSTANTIATE_TEST_SUITE_P(Java, RealRuntimeException, kAllRuntimes, RuntimeName);

TEST_P(RealRuntimeException, IsShownCompletelyAndIgnoredSilently) {
    settings.Application(L"Error File", app.Path(L"err.txt"));
    settings.Runtime(L"VM Provider", L"any");
    const std::wstring released = NewFilePath(L"released");
    const HWND dialog = OpenDialog(L"8 1000 \"main failed\" \"" + released + L'"');
    const std::string trace = Trace();
    EXPECT_GT(trace.size(), 256U * 1024U);
    EXPECT_THAT(trace.substr(0, 100),
                StartsWith("java.lang.IllegalStateException: main failed\r\n\tat "));
    EXPECT_NE(trace.find("\r\nCaused by: java.io.IOException: cause 8\r\n"), std::string::npos);
    EXPECT_NE(trace.find("\r\n\tSuppressed: java.io.IOException: suppressed\nin two lines\r\n"),
              std::string::npos);
    EXPECT_TRUE(ToUtf8(ShownTrace(dialog)) == trace);

    // After Ignore, the other threads continue, and System.exit ends the process.
    PressButton(dialog, IDOK);
    EXPECT_FALSE(process_->HasEnded());
    app.AddFile(L"released");
    EXPECT_EQ(process_->ExitCode(), 7);
    EXPECT_TRUE(Report().Has("hook", L"ran"));
    EXPECT_EQ(ReadFileBytes(app.Path(L"err.txt")), "");
}

TEST_P(RealRuntimeException, StopRunsShutdownHooksAndTheParentSeesMinusOne) {
    PressButton(OpenDialog(L"1 2"), IDCANCEL);
    EXPECT_EQ(process_->ExitCode(), -1);
    EXPECT_TRUE(Report().Has("hook", L"ran"));
}

/// What is the same on all runtimes, with the oldest and the newest.
class RealRuntimeExceptionDialog : public RealRuntimeException {};
INSTANTIATE_TEST_SUITE_P(Java, RealRuntimeExceptionDialog, testing::Values("11", "25"),
                         RuntimeName);

TEST_P(RealRuntimeExceptionDialog, StopsWhenItIsClosed) {
    PostMessageW(OpenDialog(L"1 2"), WM_SYSCOMMAND, SC_CLOSE, 0);
    EXPECT_EQ(process_->ExitCode(), -1);
    EXPECT_TRUE(Report().Has("hook", L"ran"));
}

TEST_P(RealRuntimeExceptionDialog, StopsAtEscape) {
    PostMessageW(OpenDialog(L"1 2"), WM_KEYDOWN, VK_ESCAPE, 0);
    EXPECT_EQ(process_->ExitCode(), -1);
}

TEST_P(RealRuntimeExceptionDialog, ReadsTheTraceInTheSystemsCodePage) {
    const HWND dialog = OpenDialog(L"0 0 Gr\u00fc\u00dfe");
    const std::string trace = Trace();
    wchar_t page[8] = {};
    GetLocaleInfoW(GetSystemDefaultLCID(), LOCALE_IDEFAULTANSICODEPAGE, page, 8);
    std::wstring expected(trace.size(), L'\0');
    expected.resize(static_cast<std::size_t>(MultiByteToWideChar(
        static_cast<UINT>(std::stoi(page)), 0, trace.data(), static_cast<int>(trace.size()),
        expected.data(), static_cast<int>(expected.size()))));
    EXPECT_EQ(ToUtf8(ShownTrace(dialog)), ToUtf8(expected));
    PressButton(dialog, IDOK);
    EXPECT_EQ(process_->ExitCode(), 0);
}

}  // namespace
}  // namespace tarn::test
