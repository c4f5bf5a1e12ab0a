#pragma once

#include <string>

#include "base/windows.h"

namespace tarn::test {

/// Has the library loaded by a thread of the process, whose own has not begun yet: before the
/// program's first instruction. False when that failed.
bool PutLibraryInto(HANDLE process, const std::wstring& library);

}  // namespace tarn::test
