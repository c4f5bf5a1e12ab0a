#pragma once

#include "base/unique_resource.h"
#include "base/windows.h"

namespace tarn {

/// A kernel object whose absence is null: event, thread, process, file mapping.
struct HandleTraits {
    using Value = HANDLE;
    static Value None() { return nullptr; }
    static void Close(Value value) { CloseHandle(value); }
};
using UniqueHandle = UniqueResource<HandleTraits>;

/// A file as `CreateFileW` opens it; its absence is `INVALID_HANDLE_VALUE`.
struct FileHandleTraits {
    using Value = HANDLE;
    static Value None() { return INVALID_HANDLE_VALUE; }
    static void Close(Value value) { CloseHandle(value); }
};
using UniqueFile = UniqueResource<FileHandleTraits>;

/// A search that `FindFirstFileW` began.
struct FindHandleTraits {
    using Value = HANDLE;
    static Value None() { return INVALID_HANDLE_VALUE; }
    static void Close(Value value) { FindClose(value); }
};
using UniqueFindHandle = UniqueResource<FindHandleTraits>;

/// An open registry key.
struct RegistryKeyTraits {
    using Value = HKEY;
    static Value None() { return nullptr; }
    static void Close(Value value) { RegCloseKey(value); }
};
using UniqueRegistryKey = UniqueResource<RegistryKeyTraits>;

/// A library that is unloaded again.
struct LibraryTraits {
    using Value = HMODULE;
    static Value None() { return nullptr; }
    static void Close(Value value) { FreeLibrary(value); }
};
using UniqueLibrary = UniqueResource<LibraryTraits>;

/// A view of a file mapping.
struct FileViewTraits {
    using Value = void*;
    static Value None() { return nullptr; }
    static void Close(Value value) { UnmapViewOfFile(value); }
};
using UniqueFileView = UniqueResource<FileViewTraits>;

}  // namespace tarn
