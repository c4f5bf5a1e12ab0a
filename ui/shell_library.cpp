#include "ui/shell_library.h"

#include "base/system_library.h"

namespace tarn {

HMODULE ShellLibrary() {
    static const HMODULE library = LoadSystemLibrary(L"shell32.dll");
    return library;
}

}  // namespace tarn
