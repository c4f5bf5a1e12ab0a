#pragma once

#include "base/handles.h"
#include "base/windows.h"

namespace tarn {

/// A GDI bitmap.
struct BitmapTraits {
    using Value = HBITMAP;
    static Value None() { return nullptr; }
    static void Close(Value value) { DeleteObject(value); }
};
using UniqueBitmap = UniqueResource<BitmapTraits>;

/// A memory device context (`CreateCompatibleDC`).
struct MemoryContextTraits {
    using Value = HDC;
    static Value None() { return nullptr; }
    static void Close(Value value) { DeleteDC(value); }
};
using UniqueMemoryDc = UniqueResource<MemoryContextTraits>;

/// The screen's device context (`GetDC` with a null window).
struct ScreenContextTraits {
    using Value = HDC;
    static Value None() { return nullptr; }
    static void Close(Value value) { ReleaseDC(nullptr, value); }
};
using UniqueScreenDc = UniqueResource<ScreenContextTraits>;

/// Selects a bitmap into a device context while the object lives. A selected bitmap can be neither
/// deleted nor selected into another context.
class BitmapSelection {
  public:
    BitmapSelection(HDC context, HBITMAP bitmap)
        : context_(context), previous_(SelectObject(context, bitmap)) {}
    BitmapSelection(const BitmapSelection&) = delete;
    BitmapSelection& operator=(const BitmapSelection&) = delete;
    ~BitmapSelection() { SelectObject(context_, previous_); }

  private:
    HDC context_;
    HGDIOBJ previous_;
};

}  // namespace tarn
