#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/support/fake_jvm_fixture.h"

namespace tarn::test {

/// The numbers of the dialog's controls.
inline constexpr int kOk = 1;
inline constexpr int kCancel = 2;
inline constexpr int kPathEdit = 201;
inline constexpr int kBrowse = 202;
inline constexpr int kMessage = 203;
inline constexpr int kErrorIcon = 204;
inline constexpr int kLink = 205;
inline constexpr int kHint = 206;

/// Picks the folder in the tree of a folder browser of the process; whether that worked.
bool SelectInBrowser(DWORD process, HWND browser, const std::wstring& folder,
                     std::chrono::milliseconds patience = kPatience);

/// An application whose settings lead to no runtime, so that the dialog comes. The runtimes that a
/// test may choose are the scripted ones.
class JreNotFoundFixture : public testing::Test {
  protected:
    JreNotFoundFixture();

    /// Starts the application and waits for the dialog, which becomes `dialog`.
    void StartUntilDialog(std::wstring_view argumentText = {});

    bool OkIsEnabled() const { return IsWindowEnabled(Child(dialog, kOk)) != FALSE; }
    std::wstring ShownPath() const { return WindowText(Child(dialog, kPathEdit)); }

    /// Presses Browse, picks the folder in the window that comes, confirms, and waits until that
    /// window is gone.
    void BrowseTo(const std::wstring& folder);
    /// Presses Browse and waits for the window.
    HWND OpenBrowser();
    /// Picks the folder in the browser's tree.
    void Select(HWND browser, const std::wstring& folder) const;
    /// Picks something in the browser's tree that has no path in the file system.
    void SelectVirtualFolder(HWND browser) const;
    /// Ends the browser by its button and waits until it is gone.
    void CloseBrowser(HWND browser, int button) const;

    /// Presses OK and gives the exit code of the launch.
    std::int32_t Confirm();
    /// The exit code that ends the launch now.
    std::int32_t End() const { return process->ExitCode().value_or(kNoExitCode); }

    /// The user's own settings file for the product that the settings name.
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
