#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/support/fake_jvm_fixture.h"

namespace tarn::test {

/// The ids of the dialog's controls.
inline constexpr int kOk = 1;
inline constexpr int kCancel = 2;
inline constexpr int kPathEdit = 201;
inline constexpr int kBrowse = 202;
inline constexpr int kMessage = 203;
inline constexpr int kErrorIcon = 204;
inline constexpr int kLink = 205;
inline constexpr int kHint = 206;

/// Selects the folder in the tree of a process's folder browser. Returns whether that succeeded.
bool SelectInBrowser(DWORD process, HWND browser, const std::wstring& folder,
                     std::chrono::milliseconds timeLimit = kTimeLimit);

/// An application whose settings lead to no runtime, so that the dialog appears. The runtimes that
/// a test may choose are scripted ones.
class JreNotFoundFixture : public testing::Test {
  protected:
    JreNotFoundFixture();

    /// Starts the application and waits for the dialog, which becomes `dialog`.
    void StartUntilDialog(std::wstring_view argumentText = {});

    bool OkIsEnabled() const { return IsWindowEnabled(Child(dialog, kOk)) != FALSE; }
    std::wstring ShownPath() const { return WindowText(Child(dialog, kPathEdit)); }

    /// Presses Browse, selects the folder in the folder browser, confirms, and waits until the
    /// browser is closed.
    void BrowseTo(const std::wstring& folder);
    /// Presses Browse and waits for the folder browser.
    HWND OpenBrowser();
    /// Selects the folder in the browser's tree.
    void Select(HWND browser, const std::wstring& folder) const;
    /// Selects an item of the browser's tree that has no path in the file system.
    void SelectVirtualFolder(HWND browser) const;
    /// Ends the browser with its button and waits until it is closed.
    void CloseBrowser(HWND browser, int button) const;

    /// Presses OK and returns the exit code of the launch.
    std::int32_t Confirm();
    /// Waits for the end of the launch and returns its exit code.
    std::int32_t End() const { return process->ExitCode().value_or(kNoExitCode); }

    /// The per-user settings file of the product that the settings name.
    std::wstring PerUserFile(std::wstring_view program = L"sample") const;

    static constexpr std::int32_t kNoExitCode = -559038737;
    static constexpr wchar_t kProductName[] = L"Product";
    static constexpr wchar_t kProductCode[] = L"1234-5678";

    InstalledApplication app;
    SettingsText settings;
    std::unique_ptr<LaunchedProcess> process;
    HWND dialog = nullptr;
};

}  // namespace tarn::test
