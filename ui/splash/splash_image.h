#pragma once

#include <string>

#include "ui/geometry/pixel_rect.h"
#include "ui/splash/gdi_handles.h"
#include "ui/splash/gdi_plus.h"

namespace tarn {

/// What to draw of a decoded image, and how.
struct ImageDrawing {
    GpImage* image = nullptr;
    /// The part to draw, in the image's pixels; all zeros is the whole image.
    PixelRect source{};
    /// Pixels of exactly this colour become transparent; none when null.
    const COLORREF* colorKey = nullptr;
};

/// The size of an image, in pixels; 0 by 0 without an image.
PixelSize ImageSize(GpImage* image);

/// The image file, decoded by GDI+ in any format that it knows. Nothing when the file is missing or
/// cannot be decoded.
UniqueGpImage DecodeImage(const std::wstring& path);

/// A bitmap like the screen's, as large as what is drawn, with the image in it. What is
/// transparent in the image is black. Null when GDI has no memory for it.
UniqueBitmap RenderForScreen(const ImageDrawing& drawing);

}  // namespace tarn
