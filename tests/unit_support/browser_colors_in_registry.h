#pragma once

#include <string>

#include "base/windows.h"

namespace tarn {

/// The user's link colours in the registry, which a test sets and removes.
void ClearBrowserColors();
void SetBrowserColor(const wchar_t* name, DWORD type, const std::wstring& value);
/// Without a terminator.
void SetBrowserColorBytes(const wchar_t* name, DWORD type, const std::wstring& value);

}  // namespace tarn
