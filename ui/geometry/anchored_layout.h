#pragma once

namespace tarn {

/// In pixels of the window's client area.
struct Rectangle {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// How a control takes part when its window becomes larger than it was at first.
struct Anchor {
    bool movesRight = false;
    bool movesDown = false;
    bool growsRight = false;
    bool growsDown = false;
};

/// By how many pixels a window is wider and higher than at first. It never is smaller: what a
/// screen or a monitor's change of scale enforces beyond that counts as its first size.
struct Growth {
    int right = 0;
    int down = 0;
};

/// The growth of a client area from its first size to its present one.
Growth GrowthBetween(int firstWidth, int firstHeight, int width, int height);

/// Where a control belongs whose place was `first` before its window grew.
Rectangle Anchored(const Rectangle& first, Anchor anchor, Growth growth);

/// A length in pixels of a screen of `firstDpi`, on one of `dpi`, rounded to the nearest.
int ScaledLength(int length, int dpi, int firstDpi);

/// All four lengths of a rectangle, scaled.
Rectangle Scaled(const Rectangle& rectangle, int dpi, int firstDpi);

}  // namespace tarn
