#include "jvm/java_exception.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "base/windows.h"
#include "resources/ids.h"

namespace tarn {
namespace {

constexpr auto kLongestWait = std::chrono::seconds(30);

BOOL CALLBACK FindDialog(HWND window, LPARAM found) noexcept {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    wchar_t title[32] = {};
    GetWindowTextW(window, title, 32);
    const bool isOurs =
        process == GetCurrentProcessId() && std::wstring(title) == L"Java Exception";
    if (!isOurs || !IsWindowVisible(window)) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1,
                      L'\0');
    const LRESULT length =
        SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

RECT PlaceOf(HWND dialog, int id) {
    RECT rect{};
    GetWindowRect(GetDlgItem(dialog, id), &rect);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

/// The dialog on a thread of its own, as the Java thread shows it.
class JavaExceptionDialogTest : public testing::Test {
  protected:
    void Open(std::wstring trace) {
        thread_ =
            std::thread([this, trace = std::move(trace)] { answer_ = ShowJavaException(trace); });
        const auto end = std::chrono::steady_clock::now() + kLongestWait;
        while (dialog_ == nullptr && std::chrono::steady_clock::now() < end) {
            EnumWindows(&FindDialog, reinterpret_cast<LPARAM>(&dialog_));
            std::this_thread::yield();
        }
        ASSERT_NE(dialog_, nullptr) << "the dialog did not open";
    }

    JavaExceptionAnswer Answer() {
        thread_.join();
        return answer_.value();
    }

    void TearDown() override {
        if (!thread_.joinable()) return;
        SendMessageW(dialog_, WM_COMMAND, IDCANCEL, 0);
        thread_.join();
    }

    void Resize(int width, int height) const {
        ASSERT_TRUE(SetWindowPos(dialog_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER));
    }

    HWND Control(int id) const { return GetDlgItem(dialog_, id); }

    HWND dialog_ = nullptr;

  private:
    std::thread thread_;
    std::optional<JavaExceptionAnswer> answer_;
};

TEST_F(JavaExceptionDialogTest, IgnoreButtonIgnores) {
    Open(L"trace");
    EXPECT_EQ(TextOf(Control(1)), L"Ignore");
    SendMessageW(Control(1), BM_CLICK, 0, 0);
    EXPECT_EQ(Answer(), JavaExceptionAnswer::Ignore);
}

TEST_F(JavaExceptionDialogTest, StopButtonStops) {
    Open(L"trace");
    EXPECT_EQ(TextOf(Control(2)), L"Stop");
    SendMessageW(Control(2), BM_CLICK, 0, 0);
    EXPECT_EQ(Answer(), JavaExceptionAnswer::Stop);
}

TEST_F(JavaExceptionDialogTest, CloseBoxStops) {
    Open(L"trace");
    SendMessageW(dialog_, WM_SYSCOMMAND, SC_CLOSE, 0);
    EXPECT_EQ(Answer(), JavaExceptionAnswer::Stop);
}

TEST_F(JavaExceptionDialogTest, EscapeStops) {
    Open(L"trace");
    PostMessageW(dialog_, WM_KEYDOWN, VK_ESCAPE, 0);
    EXPECT_EQ(Answer(), JavaExceptionAnswer::Stop);
}

TEST_F(JavaExceptionDialogTest, EscapeInsideTheTraceStops) {
    Open(L"trace");
    PostMessageW(Control(IDC_EXCEPTION_TRACE), WM_KEYDOWN, VK_ESCAPE, 0);
    EXPECT_EQ(Answer(), JavaExceptionAnswer::Stop);
}

TEST_F(JavaExceptionDialogTest, EnterPressesIgnore) {
    Open(L"trace");
    EXPECT_EQ(SendMessageW(dialog_, DM_GETDEFID, 0, 0), MAKELRESULT(1, DC_HASDEFID));
    PostMessageW(dialog_, WM_KEYDOWN, VK_RETURN, 0);
    EXPECT_EQ(Answer(), JavaExceptionAnswer::Ignore);
}

TEST_F(JavaExceptionDialogTest, OtherCommandsLeaveItOpen) {
    Open(L"trace");
    SendMessageW(dialog_, WM_COMMAND, MAKEWPARAM(IDC_EXCEPTION_TRACE, EN_VSCROLL), 0);
    SendMessageW(dialog_, WM_COMMAND, 3, 0);
    EXPECT_TRUE(IsWindow(dialog_));
}

TEST_F(JavaExceptionDialogTest, ShowsTheTextsInTheirOrder) {
    Open(L"trace");
    std::vector<std::wstring> texts;
    for (HWND child = GetWindow(dialog_, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        const std::wstring text = TextOf(child);
        if (!text.empty()) texts.push_back(text);
    }
    EXPECT_EQ(
        texts,
        (std::vector<std::wstring>{
            L"Ignore", L"Stop", L"Uncaught Exception",
            L"The java process has thrown the following uncaught exception:", L"trace",
            L"Press Ignore to continue and ignore the exception or press Stop to close the "
            L"application.",
            L"WARNING: If you choose to Stop the application any unsaved data will be lost."}));
    EXPECT_NE(SendMessageW(Control(IDC_EXCEPTION_ICON), STM_GETICON, 0, 0), 0);
    EXPECT_NE(SendMessageW(dialog_, WM_GETICON, ICON_BIG, 0), 0);
}

TEST_F(JavaExceptionDialogTest, TraceIsReadOnlyAndNotSelected) {
    Open(L"java.lang.Error\r\n\tat a.B.c(D.java:1)\r\n");
    const HWND edit = Control(IDC_EXCEPTION_TRACE);
    EXPECT_EQ(TextOf(edit), L"java.lang.Error\r\n\tat a.B.c(D.java:1)\r\n");
    EXPECT_EQ(
        GetWindowLongW(edit, GWL_STYLE) & (ES_READONLY | ES_MULTILINE | WS_VSCROLL | WS_HSCROLL),
        ES_READONLY | ES_MULTILINE | WS_VSCROLL | WS_HSCROLL);
    DWORD start = 1;
    DWORD end = 2;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    EXPECT_EQ(start, end);
    EXPECT_EQ(SendMessageW(edit, EM_GETFIRSTVISIBLELINE, 0, 0), 0);
}

TEST_F(JavaExceptionDialogTest, TraceOfSeveralHundredKilobytesIsCompleteAndScrolls) {
    std::wstring trace;
    int lines = 0;
    for (; trace.size() < 600'000; ++lines) {
        trace += L"\tat com.example.application.Deep.call(Deep.java:" + std::to_wstring(lines) +
                 L")\r\n";
    }
    Open(trace);
    const HWND edit = Control(IDC_EXCEPTION_TRACE);
    EXPECT_EQ(TextOf(edit), trace);
    EXPECT_EQ(SendMessageW(edit, EM_GETLINECOUNT, 0, 0), lines + 1);
    SendMessageW(edit, WM_VSCROLL, SB_BOTTOM, 0);
    EXPECT_GT(SendMessageW(edit, EM_GETFIRSTVISIBLELINE, 0, 0), lines - 100);
}

TEST_F(JavaExceptionDialogTest, LoneLineFeedsStayInTheTextAndBreakTheLine) {
    Open(L"java.lang.Error: one\ntwo\r\n\tat a.B.c(D.java:1)\r\n");
    const HWND edit = Control(IDC_EXCEPTION_TRACE);
    EXPECT_EQ(TextOf(edit), L"java.lang.Error: one\ntwo\r\n\tat a.B.c(D.java:1)\r\n");
    EXPECT_EQ(SendMessageW(edit, EM_GETLINECOUNT, 0, 0), 4);
}

TEST_F(JavaExceptionDialogTest, FirstSizeIsTheSmallest) {
    Open(L"trace");
    RECT first{};
    ASSERT_TRUE(GetWindowRect(dialog_, &first));
    MINMAXINFO limits{};
    SendMessageW(dialog_, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    EXPECT_EQ(limits.ptMinTrackSize.x, first.right - first.left);
    EXPECT_EQ(limits.ptMinTrackSize.y, first.bottom - first.top);
    EXPECT_NE(GetWindowLongW(dialog_, GWL_STYLE) & WS_THICKFRAME, 0);
    EXPECT_NE(GetWindowLongW(Control(IDC_EXCEPTION_GRIP), GWL_STYLE) & SBS_SIZEGRIP, 0);
}

TEST_F(JavaExceptionDialogTest, FirstSizeIsThatOfTheTemplate) {
    Open(L"trace");
    RECT units{0, 0, 275, 242};
    ASSERT_TRUE(MapDialogRect(dialog_, &units));
    RECT client{};
    ASSERT_TRUE(GetClientRect(dialog_, &client));
    EXPECT_EQ(client.right, units.right);
    EXPECT_EQ(client.bottom, units.bottom);
    RECT ignore{153, 210, 203, 224};
    ASSERT_TRUE(MapDialogRect(dialog_, &ignore));
    const RECT place = PlaceOf(dialog_, 1);
    EXPECT_EQ(place.left, ignore.left);
    EXPECT_EQ(place.top, ignore.top);
}

TEST_F(JavaExceptionDialogTest, ControlsFollowTheGrowingWindow) {
    Open(L"trace");
    RECT window{};
    ASSERT_TRUE(GetWindowRect(dialog_, &window));
    const RECT stop = PlaceOf(dialog_, 2);
    const RECT trace = PlaceOf(dialog_, IDC_EXCEPTION_TRACE);
    const RECT frame = PlaceOf(dialog_, IDC_EXCEPTION_FRAME);
    const RECT icon = PlaceOf(dialog_, IDC_EXCEPTION_ICON);
    const RECT warning = PlaceOf(dialog_, IDC_EXCEPTION_WARNING);

    Resize(window.right - window.left + 120, window.bottom - window.top + 80);

    const RECT stopAfter = PlaceOf(dialog_, 2);
    EXPECT_EQ(stopAfter.left, stop.left + 120);
    EXPECT_EQ(stopAfter.bottom, stop.bottom + 80);
    EXPECT_EQ(stopAfter.right - stopAfter.left, stop.right - stop.left);
    const RECT traceAfter = PlaceOf(dialog_, IDC_EXCEPTION_TRACE);
    EXPECT_EQ(traceAfter.left, trace.left);
    EXPECT_EQ(traceAfter.top, trace.top);
    EXPECT_EQ(traceAfter.right, trace.right + 120);
    EXPECT_EQ(traceAfter.bottom, trace.bottom + 80);
    const RECT frameAfter = PlaceOf(dialog_, IDC_EXCEPTION_FRAME);
    EXPECT_EQ(frameAfter.right, frame.right + 120);
    EXPECT_EQ(frameAfter.bottom, frame.bottom + 80);
    const RECT iconAfter = PlaceOf(dialog_, IDC_EXCEPTION_ICON);
    EXPECT_TRUE(EqualRect(&iconAfter, &icon));
    const RECT warningAfter = PlaceOf(dialog_, IDC_EXCEPTION_WARNING);
    EXPECT_EQ(warningAfter.top, warning.top + 80);
    EXPECT_EQ(warningAfter.right, warning.right + 120);

    Resize(window.right - window.left, window.bottom - window.top);
    const RECT stopBack = PlaceOf(dialog_, 2);
    EXPECT_TRUE(EqualRect(&stopBack, &stop));
}

TEST_F(JavaExceptionDialogTest, ControlsLieInsideTheFrameAndApart) {
    Open(L"trace");
    const RECT frame = PlaceOf(dialog_, IDC_EXCEPTION_FRAME);
    int bottom = frame.top;
    for (const int id :
         {IDC_EXCEPTION_THROWN, IDC_EXCEPTION_TRACE, IDC_EXCEPTION_CHOICE, IDC_EXCEPTION_WARNING}) {
        const RECT place = PlaceOf(dialog_, id);
        EXPECT_GT(place.left, frame.left) << id;
        EXPECT_LT(place.right, frame.right) << id;
        EXPECT_GT(place.top, bottom) << id;
        EXPECT_LT(place.bottom, frame.bottom) << id;
        bottom = place.bottom;
    }
    EXPECT_LT(frame.bottom, PlaceOf(dialog_, 1).top);
}

TEST_F(JavaExceptionDialogTest, ChangeOfTheMonitorsScaleLaysOutAgain) {
    Open(L"trace");
    const RECT stop = PlaceOf(dialog_, 2);
    ASSERT_TRUE(MoveWindow(Control(2), 0, 0, 10, 10, FALSE));
    SendMessageW(dialog_, WM_DPICHANGED, MAKEWPARAM(96, 96), 0);
    const auto end = std::chrono::steady_clock::now() + kLongestWait;
    RECT now = PlaceOf(dialog_, 2);
    while (!EqualRect(&now, &stop) && std::chrono::steady_clock::now() < end) {
        std::this_thread::yield();
        now = PlaceOf(dialog_, 2);
    }
    EXPECT_TRUE(EqualRect(&now, &stop));
}

}  // namespace
}  // namespace tarn
