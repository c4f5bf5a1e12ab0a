// The part of GDI+'s flat interface that the splash needs. Declared here, for GDI+'s own header
// brings COM's along, and every function is found at run time anyway.
#pragma once

#include <cstdint>

#include "base/handles.h"
#include "base/windows.h"

namespace tarn {

// The library's own objects: opaque.
struct GpImage;
struct GpGraphics;
struct GpImageAttributes;

enum class GpInterpolationMode : std::int32_t { kHighQualityBicubic = 7 };
enum class GpWrapMode : std::int32_t { kTileFlipXY = 3 };
enum class GpColorAdjustType : std::int32_t { kDefault = 0 };
enum class GpUnit : std::int32_t { kPixel = 2 };

using GpStatus = std::int32_t;  ///< 0 is success
using GpColor = std::uint32_t;  ///< alpha, red, green, blue from the highest byte down

/// GDI+'s functions. Like the library's own they return a status and leave results alone on
/// failure.
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

/// GDI+, loaded from the system folder and started on the first call in the process, on any thread;
/// null when that failed. It stays until `ShutDownGdiPlus`.
const GdiPlus* GetGdiPlus();

/// Shuts GDI+ down if it was started. For the end of the program, when no other thread of ours
/// runs: the library may be used no more. A process that somebody else ends, as `System.exit`
/// does, goes without: its threads are in the middle of anything by then, and Windows takes all
/// back.
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
