#include "settings/embedded_settings.h"

#include <optional>

namespace tarn {
namespace {

constexpr wchar_t kByteOrderMark = L'\uFEFF';
constexpr std::wstring_view kLineEnd = L"\r\n";

// Everything up to U+0020 counts as a space, including control characters.
std::wstring_view SkipLeadingSpaces(std::wstring_view text) {
    while (!text.empty() && text.front() <= L' ') text.remove_prefix(1);
    return text;
}

std::wstring_view DropTrailingSpaces(std::wstring_view text) {
    while (!text.empty() && text.back() <= L' ') text.remove_suffix(1);
    return text;
}

// Returns the text between the brackets of a section line; it may be empty.
std::optional<std::wstring_view> SectionName(std::wstring_view line) {
    const std::wstring_view trimmed = DropTrailingSpaces(line);
    if (trimmed.size() < 2 || trimmed.front() != L'[' || trimmed.back() != L']') {
        return std::nullopt;
    }
    return trimmed.substr(1, trimmed.size() - 2);
}

}  // namespace

EmbeddedSettings::EmbeddedSettings(std::wstring_view text) {
    if (!text.empty() && text.front() == kByteOrderMark) text.remove_prefix(1);
    // Lines before the first section belong to a section without a name.
    std::wstring section;
    while (!text.empty()) {
        const std::size_t end = text.find(kLineEnd);
        AddLine(SkipLeadingSpaces(text.substr(0, end)), section);
        if (end == std::wstring_view::npos) return;
        text.remove_prefix(end + kLineEnd.size());
    }
}

void EmbeddedSettings::AddLine(std::wstring_view line, std::wstring& section) {
    if (line.empty()) return;
    if (const std::optional<std::wstring_view> name = SectionName(line)) {
        section = *name;
        return;
    }
    const std::size_t equals = line.find(L'=');
    const bool hasValue = equals != std::wstring_view::npos;
    entries_.push_back({section, std::wstring(line.substr(0, equals)),
                        std::wstring(hasValue ? line.substr(equals + 1) : std::wstring_view())});
}

std::wstring_view EmbeddedSettings::Find(std::wstring_view section, std::wstring_view key) const {
    // Backwards, because the last value of a key is used.
    for (auto entry = entries_.rbegin(); entry != entries_.rend(); ++entry) {
        if (entry->key == key && entry->section == section) return entry->value;
    }
    return {};
}

}  // namespace tarn
