#pragma once

#include <cstdint>

// The structure behind HWND of <windows.h>, which the pure half does without.
struct HWND__;  // NOLINT(bugprone-reserved-identifier,readability-identifier-naming)

namespace tarn {

/// Width and height in pixels.
struct PixelSize {
    std::int32_t width = 0;
    std::int32_t height = 0;
};

/// A rectangle in pixels; right and bottom are exclusive.
struct PixelRect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    std::int32_t width() const { return right - left; }
    std::int32_t height() const { return bottom - top; }
    bool operator==(const PixelRect&) const = default;
};

/// Centres a window of `size` over `around` without leaving `workArea`. The left and top edges of a
/// window that is larger than the work area stay inside it.
PixelRect CenteredOver(PixelSize size, const PixelRect& around, const PixelRect& workArea);

/// Centres a picture on the screen. An odd difference is truncated towards zero, and a picture
/// larger than the screen overhangs it on both sides: nothing is clamped.
PixelRect CenteredOnScreen(PixelSize screen, PixelSize image);

/// Enlarges `place` for a text that is `neededHeight` high: first downwards, to `lowest` at most,
/// then upwards, to `highest` at most. A place that is high enough stays as it is.
PixelRect MakeRoom(const PixelRect& place, std::int32_t neededHeight, std::int32_t highest,
                   std::int32_t lowest);

/// Centres a window over its owner, or in the work area of its monitor when it has no visible
/// owner. It stays inside the work area (`SetWindowPos`).
void CenterWindow(HWND__* window);

}  // namespace tarn
