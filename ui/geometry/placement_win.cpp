#include "ui/geometry/placement.h"

#include "base/windows.h"

namespace tarn {
namespace {

PixelRect PixelsOf(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

}  // namespace

void CenterWindow(HWND window) {
    RECT own{};
    if (!GetWindowRect(window, &own)) return;
    const HWND owner = GetWindow(window, GW_OWNER);
    const bool overOwner = owner != nullptr && IsWindowVisible(owner) && !IsIconic(owner);

    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    if (!GetMonitorInfoW(MonitorFromWindow(overOwner ? owner : window, MONITOR_DEFAULTTONEAREST),
                         &monitor))
        return;
    const PixelRect workArea = PixelsOf(monitor.rcWork);
    PixelRect around = workArea;
    RECT ownersArea{};
    if (overOwner && GetWindowRect(owner, &ownersArea)) around = PixelsOf(ownersArea);

    const PixelRect before = PixelsOf(own);
    const PixelRect place = CenteredOver({before.width(), before.height()}, around, workArea);
    SetWindowPos(window, nullptr, place.left, place.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace tarn
