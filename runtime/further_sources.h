#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "runtime/runtime_version.h"
#include "runtime/search_policy.h"

namespace tarn {

/// A source that "Further Sources" adds to the search, for runtimes whose installers do not use
/// the keys of `RegistryRoots`.
enum class FurtherSource {
    Vendors,   ///< the makers' keys in `HKEY_LOCAL_MACHINE`
    User,      ///< the same keys in `HKEY_CURRENT_USER`
    JavaHome,  ///< the environment variable `JAVA_HOME`
    Path,      ///< the first folder of `Path` that contains java.exe
    Folders,   ///< the folders into which the makers install
};

/// The words of the sources, in the order of the enumerators.
inline constexpr wchar_t kFurtherSourceWords[][10] = {L"vendors", L"user", L"java_home", L"path",
                                                      L"folders"};

/// Removes the text up to the next ";", or all of it, from `rest` and returns it without the ";".
std::wstring_view TakePiece(std::wstring_view& rest);

/// Removes words of a "Further Sources" text from `rest` up to the first that names a source, and
/// returns that source; empty when there is none. Words are separated by ";" and not
/// case-sensitive; white space around them and unknown words are ignored.
std::optional<FurtherSource> TakeFurtherSource(std::wstring_view& rest);

/// How a maker's installers register runtimes below the maker's key.
enum class KeyLayout : char {
    None,  ///< no key is known
    /// `JRE` or `JDK`, a key for each version, `hotspot\MSI` or `openj9\MSI`: the value `Path`.
    Msi,
    /// A key for each runtime: the values `InstallationPath` and `CurrentVersion` or `Version`.
    Named,
};

/// Where a maker's installers leave runtimes. Arrays, because a pointer takes as much space as most
/// of these names, and a relocation.
struct MakerPlace {
    KeyLayout layout;
    /// Path below `SOFTWARE`, in ASCII; empty without a key.
    char key[19];
    /// Name of the folder that contains the homes, below the program files folder, in ASCII; empty
    /// without a folder.
    char folder[17];
    /// The folder is also searched below the user's local program folder.
    bool perUser;
};

/// Returns the places in the order of the search.
std::span<const MakerPlace> MakerPlaces();

/// Changes a folder of the registry or of the environment into the form that the search uses:
/// without quotes, and with backslashes, also at its end. `text` is terminated, and has space for
/// one more character. Returns false unless it is an absolute path on a drive: a relative path
/// depends on the current directory, and a network path may take long to fail.
bool MakeDriveFolder(wchar_t* text);

/// Whether the policy sets no bound: the maximum is "any", and there is no minimum.
bool HasNoBounds(const RuntimeSearchPolicy& policy);

}  // namespace tarn
