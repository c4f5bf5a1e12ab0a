#include "tests/support/settings_text.h"

#include <algorithm>

namespace tarn::test {

SettingsText& SettingsText::Set(std::wstring_view section, std::wstring_view key,
                                std::wstring_view value) {
    Remove(section, key);
    auto place = std::find_if(sections_.begin(), sections_.end(),
                              [&](const Section& each) { return each.name == section; });
    if (place == sections_.end()) {
        place = sections_.insert(place, Section{std::wstring(section), {}});
    }
    place->values.emplace_back(key, value);
    return *this;
}

SettingsText& SettingsText::Application(std::wstring_view key, std::wstring_view value) {
    return Set(L"Application", key, value);
}

SettingsText& SettingsText::Runtime(std::wstring_view key, std::wstring_view value) {
    return Set(L"Java Runtime Environment", key, value);
}

SettingsText& SettingsText::Remove(std::wstring_view section, std::wstring_view key) {
    for (Section& each : sections_) {
        if (each.name != section) continue;
        std::erase_if(each.values, [&](const auto& value) { return value.first == key; });
    }
    return *this;
}

std::wstring SettingsText::Text() const {
    std::wstring text;
    for (const Section& section : sections_) {
        text += L'[' + section.name + L"]\r\n";
        for (const auto& [key, value] : section.values) text += key + L'=' + value + L"\r\n";
    }
    return text;
}

}  // namespace tarn::test
