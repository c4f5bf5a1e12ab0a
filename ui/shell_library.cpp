#include "ui/shell_library.h"

#include "base/dynamic_library.h"

namespace tarn {

HMODULE ShellLibrary() {
    // Asked for anew each time: it is loaded once all the same, and a local static would bring the
    // C++ library's guard along, and with it 100 KB of exception handling.
    return LoadSystemLibrary(L"shell32.dll");
}

}  // namespace tarn
