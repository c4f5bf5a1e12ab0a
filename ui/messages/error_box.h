#pragma once

#include <string>

#include "base/windows.h"

namespace tarn {

/// A text as it stands, or the number of one in the string table. Refers to the text, so it lives
/// as long as one call.
class TextOrId {
  public:
    TextOrId(const std::wstring& text) : text_(&text) {}
    TextOrId(unsigned id) : id_(id) {}

    /// The text; one named by its number is loaded now.
    std::wstring Load() const;
    bool empty() const { return id_ == 0 && (text_ == nullptr || text_->empty()); }

  private:
    const std::wstring* text_ = nullptr;
    unsigned id_ = 0;
};

/// No caption of ours: Windows puts its own ("Error" in English).
inline constexpr unsigned kDefaultCaption = 0;

/// Shows one message box with the error icon and OK, and waits until the user has closed it.
/// `owner` is the splash window while there is one, so that the box stays above it; null gives the
/// box a taskbar button of its own. Returns the button that closed it (`MessageBoxW`).
int ShowErrorMessage(HWND owner, const TextOrId& text, const TextOrId& caption = kDefaultCaption);

/// What a box is shown with instead of `MessageBoxW`, for a program that tells what a launch would
/// say: gets the whole text. Null, as it is in the launcher, shows boxes.
using MessageReader = void (*)(const std::wstring& text);
void ReadMessagesInstead(MessageReader reader);

/// Fills `format`'s one `%s` with `argument` and shows the result as `ShowErrorMessage` does.
int ShowFormattedError(HWND owner, const std::wstring& format, const std::wstring& argument);

/// Shows the frame for failures of Windows, filled with the text `descriptionId` and the last
/// error. The error is read only when both texts are loaded.
int ShowWindowsFailure(HWND owner, unsigned descriptionId);

}  // namespace tarn
