#pragma once

#include <utility>

#include "base/windows.h"

namespace tarn {

/// Owns one resource and closes it in the destructor. Move only.
///
/// `Traits` describes the kind of resource: `Value` is the raw type, `None()` the invalid value
/// (null for most kinds, `INVALID_HANDLE_VALUE` for files), `Close(Value)` releases the resource.
template <typename Traits>
class UniqueResource {
  public:
    using Value = typename Traits::Value;

    UniqueResource() = default;
    explicit UniqueResource(Value value) : value_(value) {}
    UniqueResource(UniqueResource&& other) noexcept : value_(other.release()) {}
    UniqueResource& operator=(UniqueResource&& other) noexcept {
        if (this != &other) reset(other.release());
        return *this;
    }
    UniqueResource(const UniqueResource&) = delete;
    UniqueResource& operator=(const UniqueResource&) = delete;
    ~UniqueResource() { reset(); }

    Value get() const { return value_; }
    explicit operator bool() const { return value_ != Traits::None(); }

    /// Closes the resource held, if any, and takes ownership of `value`.
    void reset(Value value = Traits::None()) {
        const Value old = std::exchange(value_, value);
        if (old != Traits::None()) Traits::Close(old);
    }

    /// Releases ownership and returns the resource.
    Value release() { return std::exchange(value_, Traits::None()); }

    /// Closes the resource held and returns the address for a function that stores a new one there.
    Value* put() {
        reset();
        return &value_;
    }

  private:
    Value value_ = Traits::None();
};

/// A kernel object: event, thread, process, file mapping.
struct HandleTraits {
    using Value = HANDLE;
    static Value None() { return nullptr; }
    static void Close(Value value) { CloseHandle(value); }
};
using UniqueHandle = UniqueResource<HandleTraits>;

/// A file (`CreateFileW`).
struct FileHandleTraits {
    using Value = HANDLE;
    static Value None() { return INVALID_HANDLE_VALUE; }
    static void Close(Value value) { CloseHandle(value); }
};
using UniqueFile = UniqueResource<FileHandleTraits>;

/// A file search (`FindFirstFileW`).
struct FindHandleTraits {
    using Value = HANDLE;
    static Value None() { return INVALID_HANDLE_VALUE; }
    static void Close(Value value) { FindClose(value); }
};
using UniqueFindHandle = UniqueResource<FindHandleTraits>;

/// A view of a file mapping (`MapViewOfFile`).
struct FileViewTraits {
    using Value = void*;
    static Value None() { return nullptr; }
    static void Close(Value value) { UnmapViewOfFile(value); }
};
using UniqueFileView = UniqueResource<FileViewTraits>;

/// A registry key (`RegOpenKeyExW`).
struct RegistryKeyTraits {
    using Value = HKEY;
    static Value None() { return nullptr; }
    static void Close(Value value) { RegCloseKey(value); }
};
using UniqueRegistryKey = UniqueResource<RegistryKeyTraits>;

/// A library (`LoadLibraryW`) that is unloaded by its owner.
struct LibraryTraits {
    using Value = HMODULE;
    static Value None() { return nullptr; }
    static void Close(Value value) { FreeLibrary(value); }
};
using UniqueLibrary = UniqueResource<LibraryTraits>;

/// Memory from `VirtualAlloc`.
struct PagesTraits {
    using Value = void*;
    static Value None() { return nullptr; }
    static void Close(Value value) { VirtualFree(value, 0, MEM_RELEASE); }
};
using UniquePages = UniqueResource<PagesTraits>;

/// A window. Nothing happens when its owner window has destroyed it before.
struct WindowTraits {
    using Value = HWND;
    static Value None() { return nullptr; }
    static void Close(Value value) { DestroyWindow(value); }
};
using UniqueWindow = UniqueResource<WindowTraits>;

/// An icon that is not shared (`CopyImage`).
struct IconTraits {
    using Value = HICON;
    static Value None() { return nullptr; }
    static void Close(Value value) { DestroyIcon(value); }
};
using UniqueIcon = UniqueResource<IconTraits>;

/// A GDI object that is not selected into a device context (`DeleteObject`).
template <typename ObjectHandle>
struct GdiObjectTraits {
    using Value = ObjectHandle;
    static Value None() { return nullptr; }
    static void Close(Value value) { DeleteObject(value); }
};
using UniqueBitmap = UniqueResource<GdiObjectTraits<HBITMAP>>;
using UniqueFont = UniqueResource<GdiObjectTraits<HFONT>>;

/// A memory device context (`CreateCompatibleDC`).
struct MemoryContextTraits {
    using Value = HDC;
    static Value None() { return nullptr; }
    static void Close(Value value) { DeleteDC(value); }
};
using UniqueMemoryDc = UniqueResource<MemoryContextTraits>;

/// The device context of a window's client area, or of the screen for a null window (`GetDC`),
/// released in the destructor.
class WindowDc {
  public:
    explicit WindowDc(HWND window) : window_(window), dc_(GetDC(window)) {}
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    ~WindowDc() { Close(window_, dc_); }

    HDC get() const { return dc_; }

  private:
    static void Close(HWND window, HDC dc) { ReleaseDC(window, dc); }

    HWND window_;
    HDC dc_;
};

/// Selects a bitmap or a font into a device context while the object lives (`SelectObject`). A
/// selected bitmap can be neither deleted nor selected into another context.
class GdiSelection {
  public:
    GdiSelection(HDC context, HGDIOBJ object)
        : context_(context), previous_(SelectObject(context, object)) {}
    GdiSelection(const GdiSelection&) = delete;
    GdiSelection& operator=(const GdiSelection&) = delete;
    ~GdiSelection() { SelectObject(context_, previous_); }

  private:
    HDC context_;
    HGDIOBJ previous_;
};

}  // namespace tarn
