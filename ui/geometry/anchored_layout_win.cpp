#include "base/dynamic_library.h"
#include "base/windows.h"
#include "ui/geometry/anchored_layout.h"

namespace tarn {
namespace {

PixelRect PixelsOf(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

/// Returns the scale of the window's monitor in DPI; 0 before Windows 10, where a window keeps the
/// scale that it was created with.
int DpiOf(HWND window) {
    using GetDpiForWindowFunction = UINT(WINAPI*)(HWND);
    const auto getDpi =
        FindFunction<GetDpiForWindowFunction>(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow");
    return getDpi != nullptr ? static_cast<int>(getDpi(window)) : 0;
}

}  // namespace

void AnchoredControls::Begin(HWND dialog) {
    dialog_ = dialog;
    RECT rect;
    if (GetWindowRect(dialog, &rect)) firstWindow_ = PixelsOf(rect);
    if (GetClientRect(dialog, &rect)) firstClient_ = PixelsOf(rect);
    firstDpi_ = DpiOf(dialog);
}

void AnchoredControls::Add(int controlId, Anchor anchor) {
    const HWND window = GetDlgItem(dialog_, controlId);
    RECT rect;
    if (window == nullptr || !GetWindowRect(window, &rect)) return;
    MapWindowPoints(nullptr, dialog_, reinterpret_cast<POINT*>(&rect), 2);
    controls_.push_back({window, anchor, PixelsOf(rect)});
}

void AnchoredControls::LayOut() const {
    RECT client;
    if (dialog_ == nullptr || !GetClientRect(dialog_, &client)) return;
    const int dpi = DpiOf(dialog_);
    const PixelRect first = Scaled(firstClient_, dpi, firstDpi_);
    const Growth growth =
        GrowthBetween({first.width(), first.height()}, {client.right, client.bottom});
    for (const Control& control : controls_) {
        const PixelRect place =
            Anchored(Scaled(control.first, dpi, firstDpi_), control.anchor, growth);
        SetWindowPos(control.window, nullptr, place.left, place.top, place.width(), place.height(),
                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
    }
    // A group box surrounds other controls, which repaint the area that it uncovers.
    InvalidateRect(dialog_, nullptr, TRUE);
}

void AnchoredControls::LimitSize(MINMAXINFO& limits) const {
    if (dialog_ == nullptr) return;
    const int dpi = DpiOf(dialog_);
    limits.ptMinTrackSize.x = ScaledLength(firstWindow_.width(), dpi, firstDpi_);
    limits.ptMinTrackSize.y = ScaledLength(firstWindow_.height(), dpi, firstDpi_);
}

}  // namespace tarn
