// The entry point of the process, which replaces the compiler's start-up objects. Those parse the
// command line, copy the environment, handle floating-point errors, apply relocations and register
// thread callbacks, none of which the launcher needs. The C library initializes itself when its DLL
// is loaded.
//
// Dynamic initializers and destructors of global objects do not run. The build with clang rejects
// them.

#include <cstdlib>

#include "base/windows.h"

/// The linker's default name for the entry point.
extern "C" [[noreturn]] void WinMainCRTStartup() {
    // `exit` flushes stdio and runs `atexit` handlers.
    std::exit(wWinMain(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), SW_SHOWDEFAULT));
}
