#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "base/handles.h"
#include "base/windows.h"

namespace tarn {

/// A small bitmap file for the unit tests, in which no two pixels have the same colour. The
/// destructor removes the file.
class PictureFixture {
  public:
    static constexpr int kWidth = 5;
    static constexpr int kHeight = 3;

    static COLORREF PixelAt(int x, int y) {
        return RGB(40 * x + 10, 80 * y + 20, 255 - 30 * x - 10 * y);
    }

    PictureFixture() {
        wchar_t folder[MAX_PATH];
        GetTempPathW(MAX_PATH, folder);
        path_ = std::wstring(folder) + L"tarn_picture_" + std::to_wstring(GetCurrentProcessId()) +
                L".bmp";
        const UniqueFile file(CreateFileW(path_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
        const auto pixels = Pixels();
        BITMAPINFOHEADER info{};
        info.biSize = sizeof(info);
        info.biWidth = kWidth;
        info.biHeight = kHeight;
        info.biPlanes = 1;
        info.biBitCount = 24;
        BITMAPFILEHEADER header{};
        header.bfType = 0x4D42;  // "BM"
        header.bfOffBits = sizeof(header) + sizeof(info);
        header.bfSize = header.bfOffBits + static_cast<DWORD>(pixels.size());
        Write(file, &header, sizeof(header));
        Write(file, &info, sizeof(info));
        Write(file, pixels.data(), static_cast<DWORD>(pixels.size()));
    }
    PictureFixture(const PictureFixture&) = delete;
    PictureFixture& operator=(const PictureFixture&) = delete;
    ~PictureFixture() { DeleteFileW(path_.c_str()); }

    const std::wstring& path() const { return path_; }

  private:
    static constexpr std::size_t kRowSize = (kWidth * 3 + 3) / 4 * 4;
    using PixelBytes = std::array<unsigned char, kRowSize * kHeight>;

    // Bottom-up, blue first.
    static PixelBytes Pixels() {
        PixelBytes bytes{};
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x) {
                const COLORREF color = PixelAt(x, y);
                unsigned char* const pixel =
                    &bytes[static_cast<std::size_t>(kHeight - 1 - y) * kRowSize +
                           static_cast<std::size_t>(x) * 3];
                pixel[0] = GetBValue(color);
                pixel[1] = GetGValue(color);
                pixel[2] = GetRValue(color);
            }
        return bytes;
    }

    static void Write(const UniqueFile& file, const void* data, DWORD size) {
        DWORD written = 0;
        WriteFile(file.get(), data, size, &written, nullptr);
    }

    std::wstring path_;
};

}  // namespace tarn
