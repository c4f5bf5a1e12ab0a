#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/java/jar_file.h"

namespace tarn::tools {

inline constexpr std::string_view kManifestEntry = "META-INF/MANIFEST.MF";

/// The main attributes of a jar's manifest; the sections of single entries are left out.
class Manifest {
  public:
    /// Parses a manifest: lines ended by CR LF, LF or CR, each continued by lines that begin with a
    /// blank (also within a character's bytes). Lines without ": " are passed over.
    static Manifest Parse(std::string_view text);

    /// The manifest of a jar. Throws Failure when it has none.
    static Manifest Of(const JarFile& jar);

    /// An attribute's value in UTF-8, empty when it is absent. Letter case of names does not count.
    std::string Get(std::string_view name) const;

    /// The first of these attributes that has a value.
    std::string GetFirst(std::initializer_list<std::string_view> names) const;

    /// An attribute's words, which blanks separate ("Class-Path", "Add-Opens").
    std::vector<std::string> GetWords(std::string_view name) const;

  private:
    std::map<std::string, std::string, std::less<>> attributes_;  // names in small letters
};

}  // namespace tarn::tools
