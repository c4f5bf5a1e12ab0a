#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "settings/settings.h"

namespace tarn {

/// Writes the folder that the user has chosen as "JRE Path", where the next start reads it: into
/// the per-user settings file, whose folders are created, or for a service into the main settings
/// file; with "Pair Product" also into the paired launcher's file of the same kind. Failures are
/// ignored, because the next start shows the dialog again.
void RememberRuntime(const Settings& settings, const std::wstring& folder);

/// The largest settings file that `WriteJrePath` converts to UTF-16, in bytes.
inline constexpr std::size_t kMaxConvertedSize = 0x100000;

/// Writes `folder` as "JRE Path" into one settings file (`WritePrivateProfileStringW`). That
/// function keeps the encoding of a file. If the folder's name does not fit the system's code page,
/// a file that does not exist is therefore created as UTF-16, and an 8-bit file is first converted
/// to UTF-16 with everything in it. The file is not changed at all when it cannot be converted: it
/// is read-only, open in another program, a symbolic link or larger than `kMaxConvertedSize`.
void WriteJrePath(const std::wstring& settingsPath, const std::wstring& folder);

/// Returns whether a settings file is text in the system's code page: it does not begin with a
/// byte-order mark and contains no null characters.
bool IsAnsiText(std::string_view bytes);

}  // namespace tarn
