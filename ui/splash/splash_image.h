#pragma once

#include <string>

#include "ui/geometry/placement.h"
#include "ui/splash/gdi_plus.h"

namespace tarn {

/// Parameters of the drawing of a decoded image.
struct ImageDrawing {
    GpImage* image = nullptr;
    /// The part to draw, in the image's pixels; all zeros is the whole image.
    PixelRect source{};
    /// Pixels of exactly this colour become transparent; none when null.
    const COLORREF* colorKey = nullptr;
};

/// Returns the size of an image in pixels; 0 x 0 without an image.
PixelSize ImageSize(GpImage* image);

/// Decodes an image file in any format that GDI+ supports (`GdipCreateBitmapFromFile`). Returns
/// nothing when the file is missing or cannot be decoded.
UniqueGpImage DecodeImage(const std::wstring& path);

/// Draws the image into a new screen-compatible bitmap of its size. Transparent parts are black,
/// because the bitmap is not filled first (docs/developer/compatibility.md). Returns null when
/// there is not enough memory for the bitmap.
UniqueBitmap RenderForScreen(const ImageDrawing& drawing);

}  // namespace tarn
