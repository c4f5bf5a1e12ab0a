#include "settings/layered_settings.h"

#include "settings/embedded_text.h"
#include "settings/ini_name_list.h"

namespace tarn {
namespace {

// One look for the list of a section's keys pays when it saves two for a value.
constexpr int kReadsBeforeKeyList = 2;

}  // namespace

LayeredSettings::LayeredSettings(std::wstring mainSettingsPath)
    : IniFile(std::move(mainSettingsPath)),
      embedded_(LoadEmbeddedText()),
      sectionNames_(ReadSectionNames()) {}

bool LayeredSettings::MayHold(const wchar_t* section, const wchar_t* key) const {
    const int places = CountPossibleMatches(sectionNames_, section);
    // Of several sections of one name Windows lists the keys of one.
    if (places != 1) return places != 0;
    for (Section& known : sections_) {
        if (known.name.empty()) known.name = section;
        if (known.name != section) continue;
        if (++known.looks <= kReadsBeforeKeyList) return true;
        if (known.keys.empty()) known.keys = ReadKeyNames(section);
        return CountPossibleMatches(known.keys, key) != 0;
    }
    return true;
}

std::wstring LayeredSettings::GetFileValue(const wchar_t* section, const wchar_t* key) const {
    return MayHold(section, key) ? IniFile::GetValue(section, key) : std::wstring();
}

std::wstring LayeredSettings::GetValue(const wchar_t* section, const wchar_t* key) const {
    std::wstring value = GetFileValue(section, key);
    if (!value.empty()) return value;
    const std::wstring additiveSection = std::wstring(section) + L'+';
    if (CountPossibleMatches(sectionNames_, additiveSection) != 0) {
        value = IniFile::GetValue(additiveSection.c_str(), key);
    }
    return AppendValue(embedded_.Find(section, key), value);
}

}  // namespace tarn
