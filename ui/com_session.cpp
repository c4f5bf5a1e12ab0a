#include "ui/com_session.h"

#include "base/dynamic_library.h"

namespace tarn {
namespace {

// Loaded on first need, for a launch that finds its runtime needs no COM. It stays loaded: the
// shell's own threads may still be in it when a call has come back.
HMODULE Ole() {
    // Asked for anew each time: it is loaded once all the same, and a local static would bring the
    // C++ library's guard along, and with it 100 KB of exception handling.
    return LoadSystemLibrary(L"ole32.dll");
}

}  // namespace

ComSession::ComSession() {
    using OleInitializeFunction = HRESULT(WINAPI*)(void*);
    const auto initialize = FindFunction<OleInitializeFunction>(Ole(), "OleInitialize");
    initialized_ = initialize != nullptr && SUCCEEDED(initialize(nullptr));
}

ComSession::~ComSession() {
    if (!initialized_) return;
    using OleUninitializeFunction = void(WINAPI*)();
    const auto uninitialize = FindFunction<OleUninitializeFunction>(Ole(), "OleUninitialize");
    if (uninitialize != nullptr) uninitialize();
}

void ComSession::Free(void* memory) {
    using CoTaskMemFreeFunction = void(WINAPI*)(void*);
    const auto free = FindFunction<CoTaskMemFreeFunction>(Ole(), "CoTaskMemFree");
    if (free != nullptr) free(memory);
}

}  // namespace tarn
