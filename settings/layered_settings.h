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

  private:
    EmbeddedSettings embedded_;
    // Hardly any file has additive sections, and each look for one costs as much as for a value:
    // Windows opens and reads the file every time.
    bool mayHaveAdditiveSections_;
};

/// What a "+" section's value makes of the value below it: both with a blank in between, also when
/// there is nothing below, for such values are lists that blanks separate. No blank is added when
/// `appended` begins with one, and an empty `appended` changes nothing.
std::wstring AppendValue(std::wstring_view below, std::wstring_view appended);

}  // namespace tarn
