#include "ui/hyperlink/hyper_link.h"

#include <commctrl.h>

#include "base/text.h"
#include "ui/shell/shell.h"

namespace tarn {
namespace {

PixelRect ClientArea(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    return {area.left, area.top, area.right, area.bottom};
}

bool IsStatic(HWND window) {
    wchar_t name[16];  // a longer name is cut, and then it is not "static"
    const int length = GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return EqualsIgnoringCase({name, static_cast<std::size_t>(length)}, L"static");
}

}  // namespace

bool HyperLink::Attach(HWND window) {
    if (attached() || !IsWindow(window) || GetPropW(window, kObjectProperty) != nullptr)
        return false;
    if (!SetPropW(window, kObjectProperty, this)) return false;
    window_ = window;
    textMode_ = true;
    visited_ = false;
    hover_ = false;
    previousProc_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&WindowProc)));

    PrepareStatic();
    cursor_ = LoadCursorW(nullptr, IDC_HAND);
    if (textMode_) fonts_.Use(ownersFont_);
    toolTip_.Create(window);
    if (label_.empty()) ReadLabel();
    LayOut();
    if (url_.empty() && mode_ == Mode::OpenAddress)
        SetUrl(label_);
    else
        RegisterTool();
    if (textMode_) ReadBrowserColors(colors_);
    Repaint();
    return true;
}

// Without SS_NOTIFY a static is transparent to the mouse.
void HyperLink::PrepareStatic() {
    if (!IsStatic(window_)) return;
    const LONG_PTR style = GetWindowLongPtrW(window_, GWL_STYLE);
    if ((style & SS_NOTIFY) == 0) SetWindowLongPtrW(window_, GWL_STYLE, style | SS_NOTIFY);
    textMode_ = ShowsText(static_cast<std::uint32_t>(style));
    format_.alignment = LinkAlignmentOf(static_cast<std::uint32_t>(style));
    format_.plainAmpersand = (style & SS_NOPREFIX) != 0;
}

void HyperLink::ReadLabel() {
    const int length = GetWindowTextLengthW(window_);
    if (length <= 0) return;
    label_.resize(static_cast<std::size_t>(length) + 1);
    const int read = GetWindowTextW(window_, label_.data(), length + 1);
    label_.resize(static_cast<std::size_t>(read));
}

void HyperLink::Detach() {
    if (!attached()) return;
    RemovePropW(window_, kObjectProperty);
    // A later subclass stays in the chain and continues to call this procedure.
    if (GetWindowLongPtrW(window_, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(&WindowProc))
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previousProc_));
    window_ = nullptr;
    toolTip_.Destroy();
    fonts_.Release();
    label_.clear();
    url_.clear();
}

void HyperLink::SetUrl(const std::wstring& url) {
    url_ = url;
    if (!attached()) return;
    if (label_.empty()) {
        LayOut();
        Repaint();
    }
    RegisterTool();
}

void HyperLink::LayOut() {
    const PixelRect client = ClientArea(window_);
    if (!textMode_) {
        layout_ = {};
        layout_.link = client;
        return;
    }
    const WindowDc dc(window_);
    layout_ = MeasureLink(dc.get(), text(), fonts_, format_, client.width());
}

void HyperLink::RegisterTool() {
    toolTip_.SetTool(url_, layout_.link);
}

void HyperLink::Paint(HDC dc) {
    const int state = SaveDC(dc);
    const auto background = reinterpret_cast<HBRUSH>(
        SendMessageW(GetParent(window_), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc),
                     reinterpret_cast<LPARAM>(window_)));
    RECT client{};
    GetClientRect(window_, &client);
    if (background != nullptr) FillRect(dc, &client, background);

    SetBkMode(dc, TRANSPARENT);
    if (!IsWindowEnabled(window_))
        SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
    else
        SetTextColor(dc, visited_ ? colors_.visited : colors_.link);
    DrawLink(dc, text(), fonts_, format_, layout_);

    // The focus rectangle depends on the text colour, so the state is restored first.
    RestoreDC(dc, state);
    const auto uiState = SendMessageW(window_, WM_QUERYUISTATE, 0, 0);
    if (GetFocus() == window_ && (uiState & UISF_HIDEFOCUS) == 0) {
        const PixelRect& link = layout_.link;
        const RECT frame{link.left, link.top, link.right, link.bottom};
        DrawFocusRect(dc, &frame);
    }
}

void HyperLink::Activate() {
    const auto id = static_cast<UINT_PTR>(GetDlgCtrlID(window_));
    const HWND parent = GetParent(window_);
    switch (mode_) {
        case Mode::NotifyParent: {
            NMHDR header{window_, id, static_cast<UINT>(NM_CLICK)};
            SendMessageW(parent, WM_NOTIFY, id, reinterpret_cast<LPARAM>(&header));
            return;
        }
        case Mode::CommandParent:
            SendMessageW(parent, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                         reinterpret_cast<LPARAM>(window_));
            return;
        case Mode::OpenAddress: {
            // A copy: the control may be destroyed before the shell returns.
            const std::wstring url = url_;
            if (!OpenWithShell(window_, url) || !attached()) return;
            visited_ = true;
            Repaint();
            return;
        }
    }
}

}  // namespace tarn
