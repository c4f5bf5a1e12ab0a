#include "ui/dialogs/jre_not_found_dialog.h"

#include <algorithm>

#include "base/handles.h"
#include "base/text.h"
#include "base/windows.h"
#include "resources/ids.h"
#include "runtime/jvm_library.h"
#include "runtime/runtime_version.h"
#include "ui/geometry/placement.h"
#include "ui/hyperlink/hyper_link.h"
#include "ui/messages/message_text.h"
#include "ui/shell/shell.h"

namespace tarn {
namespace {

PixelRect PlaceInDialog(HWND dialog, HWND control) {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    return {place.left, place.top, place.right, place.bottom};
}

/// The open dialog.
class JreNotFoundDialog {
  public:
    JreNotFoundDialog(std::wstring message, JvmType jvmType, RuntimeChoice& choice)
        : message_(std::move(message)), jvmType_(jvmType), choice_(choice) {}

    /// Shows the dialog and waits for its end. Returns the id of the button that ended it, -1 when
    /// the dialog could not be created.
    INT_PTR Show(HWND owner) {
        return DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_JRE_NOT_FOUND),
                               owner, &DialogProc, reinterpret_cast<LPARAM>(this));
    }

  private:
    static INT_PTR CALLBACK DialogProc(HWND dialog, UINT message, WPARAM wParam,
                                       LPARAM lParam) noexcept;
    void InitDialog();
    void ShowErrorIcon();
    void MakeRoomForMessage();
    void Browse();

    HWND window_ = nullptr;
    std::wstring message_;
    JvmType jvmType_;
    RuntimeChoice& choice_;
    UniqueIcon icon_;
    HyperLink link_;
};

INT_PTR CALLBACK JreNotFoundDialog::DialogProc(HWND dialog, UINT message, WPARAM wParam,
                                               LPARAM lParam) noexcept {
    if (message == WM_INITDIALOG) SetWindowLongPtrW(dialog, DWLP_USER, lParam);
    auto* const self = reinterpret_cast<JreNotFoundDialog*>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (message == WM_INITDIALOG) {
        // Without its object none of the buttons would work.
        if (self == nullptr) return EndDialog(dialog, -1);
        self->window_ = dialog;
        self->InitDialog();
        return TRUE;
    }
    if (self == nullptr || message != WM_COMMAND) return FALSE;
    switch (LOWORD(wParam)) {
        case IDOK:
        case IDCANCEL:
            EndDialog(dialog, LOWORD(wParam));
            return TRUE;
        case IDC_BROWSE:
            self->Browse();
            return TRUE;
        default:
            return FALSE;
    }
}

void JreNotFoundDialog::InitDialog() {
    const HWND link = GetDlgItem(window_, IDC_DOWNLOAD_LINK);
    link_.SetFont(reinterpret_cast<HFONT>(SendMessageW(link, WM_GETFONT, 0, 0)));
    link_.Attach(link);
    SetDlgItemTextW(window_, IDC_JRE_MESSAGE, message_.c_str());
    EnableWindow(GetDlgItem(window_, IDOK), FALSE);
    MakeRoomForMessage();
    ShowErrorIcon();
    CenterWindow(window_);
}

// The control's size follows the dialog's font, the system icon's size the screen's scale: the icon
// is scaled to fit rather than clipped.
void JreNotFoundDialog::ShowErrorIcon() {
    const HWND control = GetDlgItem(window_, IDC_ERROR_ICON);
    RECT area{};
    GetClientRect(control, &area);
    const int size = static_cast<int>(std::min(area.right, area.bottom));
    const HICON system = LoadIconW(nullptr, IDI_ERROR);
    icon_.reset(static_cast<HICON>(CopyImage(system, IMAGE_ICON, size, size, LR_COPYFROMRESOURCE)));
    const HICON shown = icon_ ? icon_.get() : system;
    SendMessageW(control, STM_SETICON, reinterpret_cast<WPARAM>(shown), 0);
}

// With two bounds and a required server JVM the message is one line longer than its control, which
// then grows into the gaps above and below.
void JreNotFoundDialog::MakeRoomForMessage() {
    const HWND control = GetDlgItem(window_, IDC_JRE_MESSAGE);
    const PixelRect place = PlaceInDialog(window_, control);
    const PixelRect link = PlaceInDialog(window_, GetDlgItem(window_, IDC_DOWNLOAD_LINK));
    RECT captionBottom{0, 0, 0, 20};  // dialog units: just below the group box's caption
    MapDialogRect(window_, &captionBottom);

    RECT text{0, 0, place.width(), 0};
    {
        const WindowDc dc(control);
        const GdiSelection selection(
            dc.get(), reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
        DrawTextW(dc.get(), message_.c_str(), -1, &text, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    }

    const PixelRect room = MakeRoom(place, text.bottom, captionBottom.bottom, link.top);
    if (room == place) return;
    SetWindowPos(control, nullptr, room.left, room.top, room.width(), room.height(),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void JreNotFoundDialog::Browse() {
    const std::optional<std::wstring> path =
        BrowseForFolder(window_, LoadMessageText(IDS_BROWSE_FOR_JRE));
    if (!path) return;
    SetDlgItemTextW(window_, IDC_JRE_PATH, path->c_str());
    choice_.runtimeHome = EnsureTrailing(*path, L'\\');
    bool server = false;
    choice_.jvmLibraryPath = SelectJvmLibrary(choice_.runtimeHome, jvmType_, server);
    // Never disabled again (docs/developer/compatibility.md): the launch reports a folder without
    // a library when it loads the library.
    if (!choice_.jvmLibraryPath.empty()) EnableWindow(GetDlgItem(window_, IDOK), TRUE);
}

}  // namespace

std::wstring JreNotFoundMessage(const RuntimeSearchPolicy& policy) {
    const unsigned id =
        policy.jvmType == JvmType::Server ? IDS_SERVER_JRE_NOT_FOUND : IDS_JRE_NOT_FOUND;
    return FormatText(LoadMessageText(id), {DescribeVersionBounds(policy.minimum, policy.maximum)});
}

bool ShowJreNotFoundDialog(const RuntimeSearchPolicy& policy, RuntimeChoice& choice) {
    JreNotFoundDialog dialog(JreNotFoundMessage(policy), policy.jvmType, choice);
    const INT_PTR result = dialog.Show(GetActiveWindow());
    if (result == -1) SetLastError(ERROR_OUTOFMEMORY);
    return result == IDOK;
}

}  // namespace tarn
