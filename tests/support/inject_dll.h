#pragma once

#include <string>

#include "base/windows.h"

namespace tarn::test {

/// Loads the library in a suspended process (`CreateRemoteThread`), before the program's first
/// instruction. Returns false on failure.
bool InjectLibrary(HANDLE process, const std::wstring& library);

}  // namespace tarn::test
