#pragma once

#include <filesystem>

#include "tools/common/byte_io.h"

namespace tarn::tools {

/// Changes to an application manifest.
struct ManifestChanges {
    /// Windows asks for an administrator's consent at every start.
    bool requiresAdministrator = false;

    /// The process's 8-bit code page is UTF-8, from Windows 10 version 1903 on.
    bool usesUtf8 = false;
};

/// Reads a file and checks that it is an application manifest: well-formed XML whose root is
/// "assembly" in the namespace that Windows requires. Windows does not start an executable with any
/// other manifest. Throws Failure.
Bytes ReadApplicationManifest(const std::filesystem::path& file);

/// The manifest with the changes. A manifest that is changed becomes UTF-8 with new indentation.
/// Throws Failure, without the file's name, for anything that is not a manifest.
Bytes ChangedManifest(ByteSpan content, const ManifestChanges& changes);

}  // namespace tarn::tools
