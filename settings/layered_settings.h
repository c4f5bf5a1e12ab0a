#pragma once

#include <string>
#include <string_view>

#include "settings/embedded_settings.h"
#include "settings/ini_file.h"

namespace tarn {

/// The main settings file layered over the embedded settings. A value in the file replaces the
/// embedded value; a value in the section with "+" appended to its name is appended to it. Created
/// by each stage that reads settings and destroyed at its end.
class LayeredSettings : public IniFile {
  public:
    explicit LayeredSettings(std::wstring mainSettingsPath);

    std::wstring GetValue(const wchar_t* section, const wchar_t* key) const override;

    /// Returns the value in the main settings file alone.
    std::wstring GetFileValue(const wchar_t* section, const wchar_t* key) const;

  private:
    struct Section {
        std::wstring name;
        int reads = 0;
        std::wstring keys;
    };

    bool MayContain(const wchar_t* section, const wchar_t* key) const;

    EmbeddedSettings embedded_;
    // Each profile call reopens and parses the file, and most keys are absent from most files.
    // Keys known to be absent are not queried.
    std::wstring sectionNames_;
    mutable Section sections_[3];  // the largest number of sections that one stage reads
};

/// Appends the value of a "+" section to the value of the layer below, separated by a space. The
/// space is also added when `below` is empty, because such values are space-separated lists, but
/// not when `appended` begins with a space (docs/developer/compatibility.md). An empty `appended`
/// changes nothing.
std::wstring AppendValue(std::wstring_view below, std::wstring_view appended);

/// Counts the positions in `names`, a list of section or key names as the profile functions return
/// it, at which `name` may occur: 0, 1, or 2 for more. Never undercounts: 0 means certainly absent.
/// Names that contain `name` are counted, the comparison ignores case, and a list that is empty
/// (perhaps because it could not be read) or not plain printable ASCII returns 2.
int CountPossibleMatches(std::wstring_view names, std::wstring_view name);

}  // namespace tarn
