#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/java/jar_file.h"

namespace tarn::tools {

inline constexpr std::string_view kManifestEntry = "META-INF/MANIFEST.MF";

/// The main attributes of a jar's manifest, without the per-entry sections.
class Manifest {
  public:
    /// Parses a manifest. Lines end with CR LF, LF or CR and are continued by lines that begin with
    /// a space, even inside a character. Lines without ": " are ignored.
    static Manifest Parse(std::string_view text);

    /// Reads the manifest of a jar. Throws Failure when there is none.
    static Manifest Of(const JarFile& jar);

    /// The value of an attribute in UTF-8; empty when absent. Names are case-insensitive.
    std::string Get(std::string_view name) const;

    /// The value of the first of these attributes that is present.
    std::string GetFirst(std::initializer_list<std::string_view> names) const;

    /// The space-separated words of an attribute such as "Class-Path" or "Add-Opens".
    std::vector<std::string> GetWords(std::string_view name) const;

  private:
    std::map<std::string, std::string, std::less<>> attributes_;  // keys in lower case
};

}  // namespace tarn::tools
