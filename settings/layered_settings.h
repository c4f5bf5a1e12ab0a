#pragma once

#include <string>

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
};

/// What a "+" section's value makes of the value below it: both with a blank in between, also when
/// there is nothing below; no blank is added when `appended` begins with one.
std::wstring AppendValue(const std::wstring& below, const std::wstring& appended);

}  // namespace tarn
