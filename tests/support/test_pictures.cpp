#include "tests/support/test_pictures.h"

#include "tests/support/paths.h"

namespace tarn::test {

namespace {

std::string BitmapHeader(SIZE size, WORD bitsPerPixel, DWORD colors, std::size_t pixelBytes) {
    BITMAPINFOHEADER info{};
    info.biSize = sizeof info;
    info.biWidth = size.cx;
    info.biHeight = size.cy;
    info.biPlanes = 1;
    info.biBitCount = bitsPerPixel;
    info.biClrUsed = colors;
    BITMAPFILEHEADER file{};
    file.bfType = 0x4D42;  // "BM"
    file.bfOffBits = static_cast<DWORD>(sizeof file + sizeof info + colors * sizeof(RGBQUAD));
    file.bfSize = file.bfOffBits + static_cast<DWORD>(pixelBytes);
    std::string bytes(reinterpret_cast<const char*>(&file), sizeof file);
    bytes.append(reinterpret_cast<const char*>(&info), sizeof info);
    return bytes;
}

std::size_t RowBytes(LONG width, std::size_t bitsPerPixel) {
    return (static_cast<std::size_t>(width) * bitsPerPixel + 31) / 32 * 4;
}

}  // namespace

std::wstring PicturePath(std::wstring_view name) {
    return GetPaths().pictures + L'\\' + std::wstring(name);
}

COLORREF PatternAt(int x, int y, SIZE size) {
    const int column = 6 * x / size.cx;
    const int row = 6 * y / size.cy;
    return RGB(51 * column, 51 * row, 102 + 51 * ((column + row) % 2));
}

std::string PatternBitmap(SIZE size) {
    const std::size_t rowBytes = RowBytes(size.cx, 24);
    std::string pixels(rowBytes * static_cast<std::size_t>(size.cy), '\0');
    for (int y = 0; y < size.cy; ++y) {
        // Bottom-up, blue first.
        char* pixel = &pixels[static_cast<std::size_t>(size.cy - 1 - y) * rowBytes];
        for (int x = 0; x < size.cx; ++x) {
            const COLORREF color = PatternAt(x, y, size);
            *pixel++ = static_cast<char>(GetBValue(color));
            *pixel++ = static_cast<char>(GetGValue(color));
            *pixel++ = static_cast<char>(GetRValue(color));
        }
    }
    return BitmapHeader(size, 24, 0, pixels.size()) + pixels;
}

std::string BlackBitmapHeader(SIZE size) {
    const std::string palette("\0\0\0\0\xFF\xFF\xFF\0", 8);
    return BitmapHeader(size, 1, 2, PixelBytes(size)) + palette;
}

std::uint64_t PixelBytes(SIZE size) {
    return std::uint64_t{RowBytes(size.cx, 1)} * static_cast<std::uint64_t>(size.cy);
}

}  // namespace tarn::test
