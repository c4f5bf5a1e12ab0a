#pragma once

namespace tarn {

/// A rectangle in pixels of a client area.
struct Rectangle {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// How a control follows the growth of its window.
struct Anchor {
    bool movesRight = false;
    bool movesDown = false;
    bool growsRight = false;
    bool growsDown = false;
};

/// The growth of a window since its first size, in pixels. Never negative: a window that the screen
/// or a change of scale makes smaller counts as having its first size.
struct Growth {
    int right = 0;
    int down = 0;
};

/// The growth of a client area from its first size to its present one.
Growth GrowthBetween(int firstWidth, int firstHeight, int width, int height);

/// Returns the place of a control that was at `first` before its window grew.
Rectangle Anchored(const Rectangle& first, Anchor anchor, Growth growth);

/// Converts a length in pixels from a screen of `firstDpi` to one of `dpi`, rounded to the nearest.
/// An unknown scale (0) changes nothing.
int ScaledLength(int length, int dpi, int firstDpi);

/// Scales all four values of a rectangle.
Rectangle Scaled(const Rectangle& rectangle, int dpi, int firstDpi);

}  // namespace tarn
