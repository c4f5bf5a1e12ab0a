#include "ui/java_exception_dialog.h"

#include "base/windows.h"
#include "resources/ids.h"
#include "ui/anchored_controls.h"

namespace tarn {
namespace {

// What comctl32.h of newer kits has: an edit control that takes a line feed for a line's end.
constexpr UINT kEmSetExtendedStyle = 0x150A;
constexpr WPARAM kEsExAllowEolAll = 0x0003;

/// The dialog manager places the controls itself when the monitor's scale changes; this comes
/// after it.
constexpr UINT kLayOutAgain = WM_APP;

class JavaExceptionDialog {
  public:
    explicit JavaExceptionDialog(const std::wstring& trace) : trace_(trace) {}
    JavaExceptionDialog(const JavaExceptionDialog&) = delete;
    JavaExceptionDialog& operator=(const JavaExceptionDialog&) = delete;

    /// The id of the button that ended it, -1 when it could not be made.
    INT_PTR Show(HWND owner) {
        return DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_JAVA_EXCEPTION),
                               owner, &Procedure, reinterpret_cast<LPARAM>(this));
    }

  private:
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam,
                                      LPARAM lParam) noexcept {
        if (message == WM_INITDIALOG) SetWindowLongPtrW(window, DWLP_USER, lParam);
        auto* const dialog =
            reinterpret_cast<JavaExceptionDialog*>(GetWindowLongPtrW(window, DWLP_USER));
        // Some messages come before the first one that brings the object along; a dialog that did
        // not get it then would never end.
        if (dialog == nullptr) return message == WM_INITDIALOG ? EndDialog(window, -1) : FALSE;
        return dialog->Handle(window, message, wParam, lParam) ? TRUE : FALSE;
    }

    bool Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        switch (message) {
            case WM_INITDIALOG:
                Fill(window);
                return true;
            case WM_COMMAND:
                // Escape and the close box arrive as the second one.
                if (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL) return false;
                EndDialog(window, LOWORD(wParam));
                return true;
            case WM_GETMINMAXINFO:
                controls_.LimitSize(*reinterpret_cast<MINMAXINFO*>(lParam));
                return true;
            case WM_SIZE:
                if (wParam != SIZE_MINIMIZED) controls_.LayOut();
                return true;
            case WM_DPICHANGED:
                PostMessageW(window, kLayOutAgain, 0, 0);
                return false;
            case kLayOutAgain:
                controls_.LayOut();
                return true;
            default:
                return false;
        }
    }

    void Fill(HWND window) {
        // Its button on the taskbar is the application's, not that of a nameless dialog.
        const auto icon = reinterpret_cast<LPARAM>(
            LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_LAUNCHER)));
        SendMessageW(window, WM_SETICON, ICON_BIG, icon);
        SendMessageW(window, WM_SETICON, ICON_SMALL, icon);
        SendDlgItemMessageW(window, IDC_EXCEPTION_ICON, STM_SETICON,
                            reinterpret_cast<WPARAM>(LoadIconW(nullptr, IDI_ERROR)), 0);
        const HWND edit = GetDlgItem(window, IDC_EXCEPTION_TRACE);
        SendMessageW(edit, EM_SETLIMITTEXT, 0, 0);  // as much as it can hold
        // Java ends lines with both characters here, an exception's message need not.
        SendMessageW(edit, kEmSetExtendedStyle, kEsExAllowEolAll, kEsExAllowEolAll);
        const UINT tabStop = 16;  // dialog units: less to scroll than the usual 32
        SendMessageW(edit, EM_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&tabStop));
        SetWindowTextW(edit, trace_.c_str());
        SendMessageW(edit, EM_SETREADONLY, TRUE, 0);

        controls_.Begin(window);
        const Anchor corner{.movesRight = true, .movesDown = true};
        const Anchor area{.growsRight = true, .growsDown = true};
        const Anchor lineAbove{.growsRight = true};
        const Anchor lineBelow{.movesDown = true, .growsRight = true};
        controls_.Add(IDOK, corner);
        controls_.Add(IDCANCEL, corner);
        controls_.Add(IDC_EXCEPTION_GRIP, corner);
        controls_.Add(IDC_EXCEPTION_FRAME, area);
        controls_.Add(IDC_EXCEPTION_TRACE, area);
        controls_.Add(IDC_EXCEPTION_ICON, {});
        controls_.Add(IDC_EXCEPTION_THROWN, lineAbove);
        controls_.Add(IDC_EXCEPTION_CHOICE, lineBelow);
        controls_.Add(IDC_EXCEPTION_WARNING, lineBelow);
    }

    const std::wstring& trace_;
    AnchoredControls controls_;
};

}  // namespace

JavaExceptionAnswer ShowJavaException(const std::wstring& trace) {
    const INT_PTR result = JavaExceptionDialog(trace).Show(GetActiveWindow());
    if (result == -1) SetLastError(ERROR_OUTOFMEMORY);
    return result == IDOK ? JavaExceptionAnswer::Ignore : JavaExceptionAnswer::Stop;
}

}  // namespace tarn
