#include "bench/screen.h"

#include <algorithm>
#include <stdexcept>

#include "base/handles.h"

namespace tarn::bench {

namespace {

struct Search {
    DWORD process;
    HWND found;
};

BOOL CALLBACK LookAt(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    RECT place{};
    if (process != search.process || IsWindowVisible(window) == 0 ||
        GetWindowRect(window, &place) == 0 || IsRectEmpty(&place) != 0)
        return TRUE;
    search.found = window;
    return FALSE;
}

}  // namespace

HWND FirstVisibleWindow(unsigned long process) {
    Search search{process, nullptr};
    EnumWindows(LookAt, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

Screen::Screen()
    : width_(GetSystemMetrics(SM_CXSCREEN)),
      height_(GetSystemMetrics(SM_CYSCREEN)),
      pixels_(Read(0, 0, width_, height_)) {}

bool Screen::ShowsPixelOf(unsigned long process) const {
    const HWND window = FirstVisibleWindow(process);
    RECT place{};
    if (window == nullptr || GetWindowRect(window, &place) == 0) return false;
    const int left = std::max(0, static_cast<int>(place.left));
    const int right = std::min(width_, static_cast<int>(place.right));
    const int line = static_cast<int>(place.top + (place.bottom - place.top) / 2);
    if (left >= right || line < 0 || line >= height_) return false;
    const Pixels now = Read(left, line, right - left, 1);
    const auto before = pixels_.begin() + std::ptrdiff_t{line} * width_ + left;
    return !std::equal(now.begin(), now.end(), before);
}

Screen::Pixels Screen::Read(int left, int top, int width, int height) {
    Pixels pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    BITMAPINFO format{};
    format.bmiHeader.biSize = sizeof(format.bmiHeader);
    format.bmiHeader.biWidth = width;
    format.bmiHeader.biHeight = -height;  // top-down
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    const WindowDc screen(nullptr);
    const UniqueMemoryDc memory(CreateCompatibleDC(screen.get()));
    const UniqueBitmap bitmap(CreateCompatibleBitmap(screen.get(), width, height));
    bool copied = false;
    {
        const GdiSelection selection(memory.get(), bitmap.get());
        copied = BitBlt(memory.get(), 0, 0, width, height, screen.get(), left, top, SRCCOPY) != 0;
    }
    if (!copied || GetDIBits(screen.get(), bitmap.get(), 0, static_cast<UINT>(height),
                             pixels.data(), &format, DIB_RGB_COLORS) != height)
        throw std::runtime_error("the screen cannot be read");
    return pixels;
}

}  // namespace tarn::bench
