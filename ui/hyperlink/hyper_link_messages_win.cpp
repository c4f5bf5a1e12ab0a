// The link's handling of its control's messages.
#include "ui/hyperlink/hyper_link.h"

namespace tarn {
namespace {

constexpr wchar_t kEnter = L'\r';
constexpr wchar_t kSpace = L' ';

POINT PointOf(LPARAM lParam) {
    return {static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam))};
}

}  // namespace

LRESULT CALLBACK HyperLink::WindowProc(HWND window, UINT message, WPARAM wParam,
                                       LPARAM lParam) noexcept {
    auto* const link = static_cast<HyperLink*>(GetPropW(window, kObjectProperty));
    if (link == nullptr) return DefWindowProcW(window, message, wParam, lParam);
    return link->HandleMessage(message, wParam, lParam);
}

LRESULT HyperLink::CallPrevious(UINT message, WPARAM wParam, LPARAM lParam) {
    return CallWindowProcW(previousProc_, window_, message, wParam, lParam);
}

LRESULT HyperLink::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (textMode_ && HandleTextMessage(message, wParam, lParam, result)) return result;

    switch (message) {
        case WM_NCDESTROY: {
            const HWND window = window_;
            const WNDPROC previousProc = previousProc_;
            Detach();
            return CallWindowProcW(previousProc, window, message, wParam, lParam);
        }
        case WM_SIZE:
            LayOut();
            RegisterTool();
            Repaint();
            break;
        case WM_SETCURSOR:
            if (SetCursorOverLink()) return TRUE;
            break;
        case WM_MOUSEMOVE:
            toolTip_.Relay(message, wParam, lParam);
            MouseMove(PointOf(lParam));
            return 0;
        case WM_MOUSELEAVE:
            hover_ = false;
            Repaint();
            return 0;
        // Handled completely: a static with SS_NOTIFY would notify the parent of clicks beside the
        // link and of double-clicks.
        case WM_LBUTTONDOWN:
            PressButton(PointOf(lParam));
            return 0;
        case WM_LBUTTONDBLCLK:
            return 0;
        case WM_LBUTTONUP:
            ReleaseButton(PointOf(lParam));
            return 0;
        case WM_CHAR:
            if (wParam != kEnter && wParam != kSpace) break;
            Activate();
            return 0;
        case WM_GETDLGCODE: {
            // A dialog uses Enter for its default button unless the control asks for that key
            // press; the navigation keys stay the dialog's.
            const auto* const key = reinterpret_cast<const MSG*>(lParam);
            const bool enter =
                key != nullptr && key->message == WM_KEYDOWN && key->wParam == VK_RETURN;
            return enter ? DLGC_WANTCHARS | DLGC_WANTMESSAGE : DLGC_WANTCHARS;
        }
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
        case WM_UPDATEUISTATE:
            result = CallPrevious(message, wParam, lParam);
            Repaint();
            return result;
        default:
            break;
    }
    return CallPrevious(message, wParam, lParam);
}

bool HyperLink::HandleTextMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_ERASEBKGND:
            result = 1;
            return true;
        case WM_PAINT: {
            PAINTSTRUCT paint;
            Paint(BeginPaint(window_, &paint));
            EndPaint(window_, &paint);
            return true;
        }
        case WM_PRINTCLIENT:
            Paint(reinterpret_cast<HDC>(wParam));
            return true;
        // A static would paint its own text.
        case WM_ENABLE:
            Repaint();
            return true;
        // A dialog that moves to a monitor of another scale sets another font.
        case WM_SETFONT:
            CallPrevious(message, wParam, FALSE);
            fonts_.Use(reinterpret_cast<HFONT>(wParam));
            LayOut();
            RegisterTool();
            if (LOWORD(lParam) != FALSE) Repaint();
            return true;
        default:
            return false;
    }
}

bool HyperLink::IsOverLink(POINT point) const {
    const PixelRect& link = layout_.link;
    return point.x >= link.left && point.x < link.right && point.y >= link.top &&
           point.y < link.bottom;
}

bool HyperLink::SetCursorOverLink() const {
    POINT point;
    if (!GetCursorPos(&point) || !ScreenToClient(window_, &point) || !IsOverLink(point))
        return false;
    SetCursor(cursor_);
    return true;
}

void HyperLink::MouseMove(POINT point) {
    const bool over = IsOverLink(point);
    if (over == hover_) return;
    hover_ = over;
    if (over) {
        TRACKMOUSEEVENT leaving{sizeof(leaving), TME_LEAVE, window_, 0};
        TrackMouseEvent(&leaving);
    }
    Repaint();
}

void HyperLink::PressButton(POINT point) {
    if (!IsOverLink(point)) return;
    SetFocus(window_);
    SetCapture(window_);
}

void HyperLink::ReleaseButton(POINT point) {
    if (GetCapture() != window_) return;
    ReleaseCapture();
    if (IsOverLink(point)) Activate();
}

}  // namespace tarn
