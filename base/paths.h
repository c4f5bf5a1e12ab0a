#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarn {

/// Returns whether a path is absolute: its second character is ":" or it begins with two
/// backslashes. A path that begins with one backslash is not.
bool IsAbsolutePath(std::wstring_view path);

/// Returns the folder of a file, up to and including the last backslash; empty when there is none.
std::wstring_view FolderOf(std::wstring_view path);

/// Returns whether `FindFirstFileW` finds a file or folder of that name. A name with wildcards
/// exists when anything matches.
bool FileExists(const std::wstring& path);

/// Returns the full path of the launcher's executable (`GetModuleFileNameW`), or of the program
/// that replaces it (`base/program.h`). Returns nothing, with the last error set, when the path
/// cannot be read or has 260 or more characters (docs/developer/compatibility.md): settings file,
/// instance name and class path are derived from this path, and a truncated one would name other
/// files.
std::optional<std::wstring> ModulePath();

/// Returns the folder of the executable, up to and including the last backslash.
std::optional<std::wstring> ModuleFolder();

}  // namespace tarn
