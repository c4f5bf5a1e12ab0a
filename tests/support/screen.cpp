#include "tests/support/screen.h"

#include <cstdlib>

namespace tarn::test {

ScreenShot::ScreenShot(const RECT& part) : part_(part) {
    const int width = part.right - part.left;
    const int height = part.bottom - part.top;
    pixels_.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;  // top-down
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
    const HGDIOBJ previous = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, screen, part.left, part.top, SRCCOPY);
    SelectObject(memory, previous);
    GetDIBits(memory, bitmap, 0, static_cast<UINT>(height), pixels_.data(), &info, DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
}

COLORREF ScreenShot::At(int x, int y) const {
    const auto row = static_cast<std::size_t>(y - part_.top);
    const auto width = static_cast<std::size_t>(part_.right - part_.left);
    // Blue is the lowest byte here, red in a COLORREF.
    const COLORREF pixel = pixels_.at(row * width + static_cast<std::size_t>(x - part_.left));
    return RGB((pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF, pixel & 0xFF);
}

RECT OnScreen(const RECT& rectangle) {
    const RECT screen{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    RECT visible{};
    IntersectRect(&visible, &rectangle, &screen);
    return visible;
}

bool AlmostEqual(COLORREF a, COLORREF b, int tolerance) {
    return std::abs(GetRValue(a) - GetRValue(b)) <= tolerance &&
           std::abs(GetGValue(a) - GetGValue(b)) <= tolerance &&
           std::abs(GetBValue(a) - GetBValue(b)) <= tolerance;
}

CoveringWindow::CoveringWindow(const RECT& part) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = DefWindowProcW;
    windowClass.hbrBackground = CreateSolidBrush(kColor);
    windowClass.lpszClassName = L"TarnTestCover";
    RegisterClassW(&windowClass);  // fails for the second window; the class exists then
    window_ = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, windowClass.lpszClassName, nullptr,
                              WS_POPUP | WS_VISIBLE, part.left, part.top, part.right - part.left,
                              part.bottom - part.top, nullptr, nullptr, nullptr, nullptr);
}

CoveringWindow::~CoveringWindow() {
    DestroyWindow(window_);
}

void CoveringWindow::PumpMessages() const {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

}  // namespace tarn::test
