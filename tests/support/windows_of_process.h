#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/windows.h"
#include "tests/support/launched_process.h"

namespace tarn::test {

/// The top-level windows of the process; with a class name, only those of that class.
std::vector<HWND> WindowsOf(DWORD process, std::wstring_view className = {});

/// Waits for a visible top-level window of that class (`#32770` are dialogs and message boxes).
/// Returns null when none appears, or when the process ends.
HWND WaitForWindow(const LaunchedProcess& process, std::wstring_view className,
                   std::chrono::milliseconds timeLimit = kTimeLimit);

std::wstring WindowText(HWND window);
std::wstring WindowClass(HWND window);

/// The child with that control id, or null.
HWND Child(HWND window, int id);

/// All children, in z-order.
std::vector<HWND> Children(HWND window);

/// Presses a button of a dialog: sends the button's command.
void PressButton(HWND dialog, int id);

/// The contents of a message box.
struct MessageBoxContent {
    HWND window = nullptr;
    std::wstring caption;
    std::wstring text;
    HWND owner = nullptr;
    std::vector<std::wstring> buttons;
    bool hasIcon = false;
};

/// Waits for a message box of the process and reads it. Returns nothing and fails the test when
/// none appears.
std::optional<MessageBoxContent> WaitForMessageBox(const LaunchedProcess& process);

/// Waits for a message box of the process, closes it with its button and returns its text. It must
/// be one of the launcher's error boxes: default caption, one button, an icon, and no owner other
/// than `owner`.
std::wstring CloseErrorBox(const LaunchedProcess& process, HWND owner = nullptr);

}  // namespace tarn::test
