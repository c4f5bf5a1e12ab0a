#include "settings/layered_settings.h"

#include "settings/embedded_text.h"

namespace tarn {
namespace {

// Wrong to one side only: a "+" anywhere counts, whatever Windows takes a section's name to be, and
// names that could not be read may hold one.
bool MayHaveAdditiveSections(std::wstring_view sectionNames) {
    return sectionNames.empty() || sectionNames.find(L'+') != std::wstring_view::npos;
}

}  // namespace

LayeredSettings::LayeredSettings(std::wstring mainSettingsPath)
    : IniFile(std::move(mainSettingsPath)),
      embedded_(LoadEmbeddedText()),
      mayHaveAdditiveSections_(MayHaveAdditiveSections(ReadSectionNames())) {}

std::wstring LayeredSettings::GetValue(const wchar_t* section, const wchar_t* key) const {
    std::wstring value = IniFile::GetValue(section, key);
    if (!value.empty()) return value;
    if (mayHaveAdditiveSections_) {
        value = IniFile::GetValue((std::wstring(section) + L'+').c_str(), key);
    }
    return AppendValue(embedded_.Find(section, key), value);
}

}  // namespace tarn
