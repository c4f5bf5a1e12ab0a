// The part of GDI+'s flat interface that the splash uses. It is declared here because GDI+'s own
// header includes COM's, and every function is found at run time.
#pragma once

#include <cstdint>

#include "base/handles.h"
#include "base/windows.h"

namespace tarn {

// Opaque objects of the library.
struct GpImage;
struct GpGraphics;
struct GpImageAttributes;

enum class GpInterpolationMode : std::int32_t { HighQualityBicubic = 7 };
enum class GpWrapMode : std::int32_t { TileFlipXY = 3 };
enum class GpColorAdjustType : std::int32_t { Default = 0 };
enum class GpUnit : std::int32_t { Pixel = 2 };

using GpStatus = std::int32_t;  ///< 0 is success
using GpColor = std::uint32_t;  ///< alpha, red, green, blue from the highest byte down

/// GDI+'s functions. They return a status and do not change their results on failure.
struct GdiPlus {
    GpStatus(WINAPI* createBitmapFromFile)(const wchar_t* path, GpImage** image);
    GpStatus(WINAPI* disposeImage)(GpImage* image);
    GpStatus(WINAPI* getImageWidth)(GpImage* image, UINT* width);
    GpStatus(WINAPI* getImageHeight)(GpImage* image, UINT* height);
    GpStatus(WINAPI* createFromHdc)(HDC context, GpGraphics** graphics);
    GpStatus(WINAPI* deleteGraphics)(GpGraphics* graphics);
    GpStatus(WINAPI* setInterpolationMode)(GpGraphics* graphics, GpInterpolationMode mode);
    GpStatus(WINAPI* createImageAttributes)(GpImageAttributes** attributes);
    GpStatus(WINAPI* disposeImageAttributes)(GpImageAttributes* attributes);
    GpStatus(WINAPI* setImageAttributesWrapMode)(GpImageAttributes* attributes, GpWrapMode mode,
                                                 GpColor border, BOOL clamp);
    GpStatus(WINAPI* setImageAttributesColorKeys)(GpImageAttributes* attributes,
                                                  GpColorAdjustType type, BOOL enable, GpColor low,
                                                  GpColor high);
    GpStatus(WINAPI* drawImageRectRectI)(GpGraphics* graphics, GpImage* image, INT x, INT y,
                                         INT width, INT height, INT sourceX, INT sourceY,
                                         INT sourceWidth, INT sourceHeight, GpUnit sourceUnit,
                                         const GpImageAttributes* attributes, void* abortCallback,
                                         void* callbackData);
};

/// Returns GDI+, which the first call in the process loads from the system folder and starts
/// (`GdiplusStartup`), on any thread. Null when that failed. It runs until `ShutDownGdiPlus`.
const GdiPlus* GetGdiPlus();

/// Shuts GDI+ down if it was started (`GdiplusShutdown`), at the end of the program, when no other
/// thread of the launcher runs; GDI+ must not be used afterwards. A process that ends through
/// `System.exit` does not shut it down: other threads may be using it.
void ShutDownGdiPlus();

struct GpImageTraits {
    using Value = GpImage*;
    static Value None() { return nullptr; }
    static void Close(Value value) { GetGdiPlus()->disposeImage(value); }
};
using UniqueGpImage = UniqueResource<GpImageTraits>;

struct GpGraphicsTraits {
    using Value = GpGraphics*;
    static Value None() { return nullptr; }
    static void Close(Value value) { GetGdiPlus()->deleteGraphics(value); }
};
using UniqueGpGraphics = UniqueResource<GpGraphicsTraits>;

struct GpImageAttributesTraits {
    using Value = GpImageAttributes*;
    static Value None() { return nullptr; }
    static void Close(Value value) { GetGdiPlus()->disposeImageAttributes(value); }
};
using UniqueGpImageAttributes = UniqueResource<GpImageAttributesTraits>;

}  // namespace tarn
