#include "tests/unit_support/picture_of_control.h"

#include <utility>

#include "tests/unit_support/link_parent.h"

namespace tarn {

Picture::Picture() {
    const HDC screen = GetDC(nullptr);
    dc_ = CreateCompatibleDC(screen);
    bitmap_ = CreateCompatibleBitmap(screen, kLinkWidth, kLinkHeight);
    before_ = SelectObject(dc_, bitmap_);
    ReleaseDC(nullptr, screen);
}

Picture::~Picture() {
    if (dc_ == nullptr) return;
    SelectObject(dc_, before_);
    DeleteObject(bitmap_);
    DeleteDC(dc_);
}

Picture::Picture(Picture&& other) noexcept
    : dc_(std::exchange(other.dc_, nullptr)), bitmap_(other.bitmap_), before_(other.before_) {}

int Picture::Count(COLORREF color) const {
    int count = 0;
    for (int y = 0; y < kLinkHeight; ++y)
        for (int x = 0; x < kLinkWidth; ++x) count += At(x, y) == color;
    return count;
}

int Picture::CountOtherThan(COLORREF color, const PixelRect& area) const {
    int count = 0;
    for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < area.right; ++x) count += At(x, y) != color;
    return count;
}

bool Picture::HasUnderline(const PixelRect& area, COLORREF color) const {
    for (int y = area.top; y < area.bottom; ++y) {
        int x = area.left;
        while (x < area.right && At(x, y) == color) ++x;
        if (x == area.right && area.width() > 0) return true;
    }
    return false;
}

Picture PictureOf(HWND control) {
    Picture picture;
    SendMessageW(control, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(picture.dc()), PRF_CLIENT);
    return picture;
}

Picture ScreenOf(HWND control) {
    Picture picture;
    const HDC screen = GetDC(control);
    BitBlt(picture.dc(), 0, 0, kLinkWidth, kLinkHeight, screen, 0, 0, SRCCOPY);
    ReleaseDC(control, screen);
    return picture;
}

}  // namespace tarn
