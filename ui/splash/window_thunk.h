#pragma once

#include "base/handles.h"
#include "base/windows.h"

namespace tarn {

/// The target of a window's messages: a window procedure that receives the object in place of the
/// window's handle.
using ObjectProcedure = LRESULT(CALLBACK*)(void* object, UINT message, WPARAM wParam,
                                           LPARAM lParam);

/// Memory from `VirtualAlloc`.
struct PagesTraits {
    using Value = void*;
    static Value None() { return nullptr; }
    static void Close(Value value) { VirtualFree(value, 0, MEM_RELEASE); }
};
using Pages = UniqueResource<PagesTraits>;

/// A few bytes of machine code that are the window procedure of one object
/// (docs/developer/compatibility.md). The object must outlive the window.
class WindowThunk {
  public:
    /// Generates the code, once. Returns false when there is no memory for it or the process must
    /// not generate code.
    bool Make(void* object, ObjectProcedure target);

    /// The window procedure, null before `Make`.
    WNDPROC procedure() const { return reinterpret_cast<WNDPROC>(code_.get()); }

  private:
    Pages code_;
};

}  // namespace tarn
