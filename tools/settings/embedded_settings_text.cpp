#include "tools/settings/embedded_settings_text.h"

#include <algorithm>
#include <set>

#include "base/text.h"
#include "tools/common/ascii.h"
#include "tools/common/text_encoding.h"
#include "tools/settings/known_keys.h"

namespace tarn::tools {
namespace {

std::wstring SpelledSection(const std::wstring& name) {
    for (std::wstring& known : KnownSections()) {
        if (EqualsIgnoringCase(known, name)) return std::move(known);
    }
    return name;
}

std::wstring SpelledKey(const std::wstring& section, const std::wstring& key) {
    const KnownKey* const known = FindKnownKey(section, key);
    return known != nullptr ? known->key : key;
}

}  // namespace

bool IsReadWhenBuiltIn(const std::wstring& section) {
    const auto keys = KnownKeys();
    return !section.ends_with(L'+') && std::none_of(keys.begin(), keys.end(), [&](const auto& key) {
        return key.source == SettingSource::MainFile && EqualsIgnoringCase(section, key.section);
    });
}

std::string EmbeddedSettingsText(const SettingsDocument& settings,
                                 std::vector<std::string>& warnings) {
    std::wstring text;
    std::set<std::wstring> sections;
    for (const DocumentSection& section : settings.sections()) {
        const std::wstring name = SpelledSection(section.name);
        if (!sections.insert(ToLowerAscii(name)).second) {
            warnings.push_back("section [" + Utf8Of(name) +
                               "] appears twice; only the first one is built in");
            continue;
        }
        if (!IsReadWhenBuiltIn(name)) {
            warnings.push_back("section [" + Utf8Of(name) +
                               "] only has an effect in the settings file beside the executable; "
                               "it is omitted");
            continue;
        }
        text += L'[' + name + L"]\r\n";
        std::set<std::wstring> keys;
        for (const DocumentEntry& entry : section.entries) {
            if (entry.key.empty() || !keys.insert(ToLowerAscii(entry.key)).second) continue;
            text += SpelledKey(name, entry.key) + L'=' + entry.value + L"\r\n";
        }
    }
    return Utf8Of(text);
}

}  // namespace tarn::tools
