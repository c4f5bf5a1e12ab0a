// Where Windows enters the program, in place of the compiler's start-up objects. Those parse the
// command line, copy the environment, watch floating-point errors, relocate and register
// thread callbacks for parts that the launcher does not have: a tenth of its size. The C library
// needs none of it, it is ready when its DLL is.
//
// What they would run is not run either, so no global of ours may have a constructor or a
// destructor that does something; the build with clang refuses one.

#include <cstdlib>

#include "base/windows.h"

/// The name that the linker looks for.
extern "C" [[noreturn]] void WinMainCRTStartup() {
    // Through the C library, so that what it holds back and what others registered with it is done.
    std::exit(wWinMain(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), SW_SHOWDEFAULT));
}
