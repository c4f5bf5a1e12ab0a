#include "settings/layered_settings.h"

#include "settings/embedded_text.h"

namespace tarn {

LayeredSettings::LayeredSettings(std::wstring mainSettingsPath)
    : IniFile(std::move(mainSettingsPath)), embedded_(LoadEmbeddedText()) {}

std::wstring LayeredSettings::GetValue(const wchar_t* section, const wchar_t* key) const {
    std::wstring value = IniFile::GetValue(section, key);
    if (!value.empty()) return value;
    const std::wstring additiveSection = std::wstring(section) + L'+';
    return AppendValue(embedded_.Find(section, key),
                       IniFile::GetValue(additiveSection.c_str(), key));
}

}  // namespace tarn
