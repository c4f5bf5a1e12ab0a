#pragma once

#include "base/handles.h"
#include "base/windows.h"

namespace tarn {

/// A pen, brush or font that the object owns.
template <typename ObjectHandle>
struct GdiObjectTraits {
    using Value = ObjectHandle;
    static Value None() { return nullptr; }
    static void Close(Value value) { DeleteObject(value); }
};
using UniqueFont = UniqueResource<GdiObjectTraits<HFONT>>;

/// The two fonts of a link: one for plain text, and its underlined copy.
class LinkFonts {
  public:
    /// Uses a font that belongs to somebody else, who keeps it for as long as this object. Null
    /// asks for the font of icon titles.
    void Use(HFONT normal);

    void Release();

    HFONT normal() const { return normal_; }
    /// A stock font when there is no plain one to copy.
    HFONT link() const;

  private:
    HFONT normal_ = nullptr;
    UniqueFont ownNormal_;
    UniqueFont underlined_;
};

}  // namespace tarn
