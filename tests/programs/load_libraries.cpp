// Loads the libraries that its arguments name, in the usual search order, which begins with the
// program's own folder. Returns how many could not be loaded.

#include <cstdlib>

#include "base/windows.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int) {
    int failed = 0;
    for (int at = 1; at < __argc; ++at) {
        if (LoadLibraryW(__wargv[at]) == nullptr) ++failed;
    }
    return failed;
}
