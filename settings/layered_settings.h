#pragma once

#include <string>
#include <string_view>

#include "settings/embedded_settings.h"
#include "settings/ini_file.h"

namespace tarn {

/// The main settings file over the settings built into the executable. A value in the file
/// replaces the built-in one; a value in the section whose name ends in "+" is put behind it.
/// Made where settings are needed and gone after that step.
class LayeredSettings : public IniFile {
  public:
    explicit LayeredSettings(std::wstring mainSettingsPath);

    std::wstring GetValue(const wchar_t* section, const wchar_t* key) const override;

    /// The value in the main settings file alone.
    std::wstring GetFileValue(const wchar_t* section, const wchar_t* key) const;

  private:
    /// A section that has been looked into.
    struct Section {
        std::wstring name;
        int looks = 0;
        std::wstring keys;
    };

    bool MayHold(const wchar_t* section, const wchar_t* key) const;

    EmbeddedSettings embedded_;
    // For every look into the file Windows opens it and reads it anew, and most keys are in hardly
    // any file: so those are not looked for that are certainly not there.
    std::wstring sectionNames_;
    mutable Section sections_[3];  // no step reads from more
};

/// What a "+" section's value makes of the value below it: both with a blank in between, also when
/// there is nothing below, for such values are lists that blanks separate. No blank is added when
/// `appended` begins with one, and an empty `appended` changes nothing.
std::wstring AppendValue(std::wstring_view below, std::wstring_view appended);

}  // namespace tarn
