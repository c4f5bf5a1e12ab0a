// The one way to Windows' own header, so that every file sees the same slice of it. Only .cpp
// files and the headers of leaf files include this: everything else also builds without Windows.
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
