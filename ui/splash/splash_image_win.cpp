#include "ui/splash/splash_image.h"

namespace tarn {
namespace {

constexpr GpColor kOpaqueBlack = 0xFF000000;

GpColor OpaqueColor(COLORREF color) {
    return kOpaqueBlack | static_cast<GpColor>(GetRValue(color)) << 16 |
           static_cast<GpColor>(GetGValue(color)) << 8 | static_cast<GpColor>(GetBValue(color));
}

PixelRect SourceOf(const ImageDrawing& drawing) {
    if (drawing.source != PixelRect{}) return drawing.source;
    const PixelSize whole = ImageSize(drawing.image);
    return {0, 0, whole.width, whole.height};
}

void Draw(const ImageDrawing& drawing, const PixelRect& source, HDC context) {
    const GdiPlus* const gdiPlus = GetGdiPlus();
    if (gdiPlus == nullptr) return;
    UniqueGpGraphics graphics;
    gdiPlus->createFromHdc(context, graphics.put());
    gdiPlus->setInterpolationMode(graphics.get(), GpInterpolationMode::HighQualityBicubic);
    UniqueGpImageAttributes attributes;
    gdiPlus->createImageAttributes(attributes.put());
    gdiPlus->setImageAttributesWrapMode(attributes.get(), GpWrapMode::TileFlipXY, kOpaqueBlack,
                                        FALSE);
    if (drawing.colorKey != nullptr) {
        const GpColor key = OpaqueColor(*drawing.colorKey);
        gdiPlus->setImageAttributesColorKeys(attributes.get(), GpColorAdjustType::Default, TRUE,
                                             key, key);
    }
    // In pixels of both sides, so that the image's resolution has no effect.
    gdiPlus->drawImageRectRectI(graphics.get(), drawing.image, 0, 0, source.width(),
                                source.height(), source.left, source.top, source.width(),
                                source.height(), GpUnit::Pixel, attributes.get(), nullptr, nullptr);
}

}  // namespace

PixelSize ImageSize(GpImage* image) {
    const GdiPlus* const gdiPlus = GetGdiPlus();
    UINT width = 0;
    UINT height = 0;
    if (gdiPlus != nullptr) {
        gdiPlus->getImageWidth(image, &width);
        gdiPlus->getImageHeight(image, &height);
    }
    return {static_cast<std::int32_t>(width), static_cast<std::int32_t>(height)};
}

UniqueGpImage DecodeImage(const std::wstring& path) {
    UniqueGpImage image;
    if (const GdiPlus* const gdiPlus = GetGdiPlus())
        gdiPlus->createBitmapFromFile(path.c_str(), image.put());
    return image;
}

UniqueBitmap RenderForScreen(const ImageDrawing& drawing) {
    const PixelRect source = SourceOf(drawing);
    const WindowDc screen(nullptr);
    UniqueBitmap bitmap(CreateCompatibleBitmap(screen.get(), source.right - source.left,
                                               source.bottom - source.top));
    const UniqueMemoryDc context(CreateCompatibleDC(screen.get()));
    const GdiSelection selection(context.get(), bitmap.get());
    Draw(drawing, source, context.get());
    return bitmap;
}

}  // namespace tarn
