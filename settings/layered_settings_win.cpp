#include "settings/layered_settings.h"

namespace tarn {
namespace {

// Listing the keys of a section costs one profile call and saves the later ones for absent keys.
constexpr int kReadsBeforeKeyList = 2;

}  // namespace

LayeredSettings::LayeredSettings(std::wstring mainSettingsPath)
    : IniFile(std::move(mainSettingsPath)),
      embedded_(LoadEmbeddedText()),
      sectionNames_(ReadSectionNames()) {}

bool LayeredSettings::MayContain(const wchar_t* section, const wchar_t* key) const {
    const int matches = CountPossibleMatches(sectionNames_, section);
    // Of several sections with the same name the profile functions list the keys of only one.
    if (matches != 1) return matches != 0;
    for (Section& known : sections_) {
        if (known.name.empty()) known.name = section;
        if (known.name != section) continue;
        if (++known.reads <= kReadsBeforeKeyList) return true;
        if (known.keys.empty()) known.keys = ReadKeyNames(section);
        return CountPossibleMatches(known.keys, key) != 0;
    }
    return true;
}

std::wstring LayeredSettings::GetFileValue(const wchar_t* section, const wchar_t* key) const {
    return MayContain(section, key) ? IniFile::GetValue(section, key) : std::wstring();
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
