#pragma once

#include "base/handles.h"
#include "base/windows.h"

namespace tarn {

/// What a window's messages are brought to: the window procedure's arguments with the object in the
/// place of the window's handle.
using ObjectProcedure = LRESULT(CALLBACK*)(void* object, UINT message, WPARAM wParam,
                                           LPARAM lParam);

/// Memory of `VirtualAlloc`.
struct PagesTraits {
    using Value = void*;
    static Value None() { return nullptr; }
    static void Close(Value value) { VirtualFree(value, 0, MEM_RELEASE); }
};
using Pages = UniqueResource<PagesTraits>;

/// A few bytes of machine code that serve as the window procedure of one object. The window must be
/// gone before this is.
class WindowThunk {
  public:
    /// Makes the code, or keeps what there is. Returns false when Windows grants no memory for it
    /// or forbids this process to make code.
    bool Make(void* object, ObjectProcedure target);

    /// The window procedure, null before `Make`.
    WNDPROC procedure() const { return reinterpret_cast<WNDPROC>(code_.get()); }

  private:
    Pages code_;
};

}  // namespace tarn
