#pragma once

#include <string>

namespace tarn {

/// Makes the folders that an output file still lacks, level by level (`CreateDirectoryW`). Only
/// for an absolute name, and only when there is no such file yet. Windows creates no folder whose
/// name has 248 characters or more; what cannot be created shows when the file is opened.
void CreateOutputFolders(const std::wstring& fileName);

}  // namespace tarn
