// Includes <windows.h> with the same configuration everywhere. Only `_win.cpp` files, tests and the
// headers of Windows-only concepts include this; everything else compiles without Windows.
#pragma once

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef UNICODE
#define UNICODE
#endif

#include <windows.h>
