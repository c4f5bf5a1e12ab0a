#pragma once

#include <atomic>
#include <string_view>

#include "base/windows.h"
#include "ui/messages/message_text.h"

namespace tarn {

/// Reports failures to the user, in message boxes with the error icon and an OK button
/// (`MessageBoxW`). Each operation waits until the user has closed the box and returns the button
/// that closed it, or 0 when there is not enough memory for the text: no box is then shown, and the
/// caller continues as if the user had closed it. Usable on any thread.
class ErrorReporter {
  public:
    /// The boxes have no owner, and thus a taskbar button of their own.
    ErrorReporter() = default;
    /// The boxes are owned by the splash window, which keeps them above it. The splash thread
    /// writes the handle when its window is there, so it is read when a box is shown.
    explicit ErrorReporter(const std::atomic<HWND>& splashWindowHandle)
        : splashWindowHandle_(&splashWindowHandle) {}

    /// Shows `text`. Without a caption Windows uses its own ("Error" in English). Each of the two
    /// can be the id of a string-table entry.
    int ShowErrorMessage(const MessageText& text, const MessageText& caption = {}) const;

    /// Fills the one `%s` of `format` with `argument` and shows the result.
    int ShowFormattedError(const MessageText& format, std::wstring_view argument) const;

    /// Shows the frame text for Windows failures, with the text `descriptionId` and the last error.
    /// The error is read after both texts have been loaded.
    int ShowWindowsFailure(unsigned descriptionId) const;

    /// Shows the frame text for JNI failures, with the texts `descriptionId` and `reasonId`; a
    /// reason of 0 is empty.
    int ShowJniFailure(unsigned descriptionId, unsigned reasonId) const;

  private:
    const std::atomic<HWND>* splashWindowHandle_ = nullptr;
};

/// Receives the text of each box in place of `MessageBoxW`, in a program that predicts what a
/// launch would report. Null shows boxes; the launcher never sets it.
using MessageReader = void (*)(std::wstring_view text);
void ReadMessagesInstead(MessageReader reader);

}  // namespace tarn
