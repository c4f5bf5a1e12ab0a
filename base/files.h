#pragma once

#include <string>

namespace tarn {

/// Whether `FindFirstFileW` finds something of that name: a file or a folder, and for a name with
/// wildcards any match.
bool FileExists(const std::wstring& path);

}  // namespace tarn
