#include "ui/splash/gdi_plus.h"

#include "base/dynamic_library.h"

namespace tarn {
namespace {

struct StartupInput {
    std::uint32_t version = 1;
    void* debugCallback = nullptr;
    BOOL suppressBackgroundThread = FALSE;
    BOOL suppressExternalCodecs = FALSE;
};
using Startup = GpStatus(WINAPI*)(ULONG_PTR* token, const StartupInput* input, void* output);
using Shutdown = void(WINAPI*)(ULONG_PTR token);

INIT_ONCE startOnce = INIT_ONCE_STATIC_INIT;
GdiPlus functions{};
bool available = false;  // written once, under startOnce
ULONG_PTR startedToken = 0;
Shutdown shutdown = nullptr;

template <typename Function>
bool Find(HMODULE library, const char* name, Function& function) {
    function = FindFunction<Function>(library, name);
    return function != nullptr;
}

bool FindAll(HMODULE library) {
    return Find(library, "GdipCreateBitmapFromFile", functions.createBitmapFromFile) &&
           Find(library, "GdipDisposeImage", functions.disposeImage) &&
           Find(library, "GdipGetImageWidth", functions.getImageWidth) &&
           Find(library, "GdipGetImageHeight", functions.getImageHeight) &&
           Find(library, "GdipCreateFromHDC", functions.createFromHdc) &&
           Find(library, "GdipDeleteGraphics", functions.deleteGraphics) &&
           Find(library, "GdipSetInterpolationMode", functions.setInterpolationMode) &&
           Find(library, "GdipCreateImageAttributes", functions.createImageAttributes) &&
           Find(library, "GdipDisposeImageAttributes", functions.disposeImageAttributes) &&
           Find(library, "GdipSetImageAttributesWrapMode", functions.setImageAttributesWrapMode) &&
           Find(library, "GdipSetImageAttributesColorKeys",
                functions.setImageAttributesColorKeys) &&
           Find(library, "GdipDrawImageRectRectI", functions.drawImageRectRectI);
}

BOOL CALLBACK Start(INIT_ONCE*, void*, void**) noexcept {
    // Never unloaded: decoders of other vendors may still use it.
    const HMODULE library = LoadSystemLibrary(L"gdiplus.dll");
    Startup startup = nullptr;
    if (!Find(library, "GdiplusStartup", startup) || !Find(library, "GdiplusShutdown", shutdown) ||
        !FindAll(library))
        return TRUE;
    const StartupInput input;
    // The result is not tested: without a start every later call fails.
    startup(&startedToken, &input, nullptr);
    available = true;
    return TRUE;
}

}  // namespace

const GdiPlus* GetGdiPlus() {
    InitOnceExecuteOnce(&startOnce, Start, nullptr, nullptr);
    return available ? &functions : nullptr;
}

void ShutDownGdiPlus() {
    if (startedToken == 0) return;
    shutdown(startedToken);
    startedToken = 0;
}

}  // namespace tarn
