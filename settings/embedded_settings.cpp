#include "settings/embedded_settings.h"

#include <algorithm>
#include <optional>

namespace tarn {
namespace {

constexpr wchar_t kByteOrderMark = L'\uFEFF';
constexpr std::wstring_view kLineEnd = L"\r\n";

// Removes the first line and its end from the text and returns the line.
std::wstring_view ConsumeLine(std::wstring_view& text) {
    const std::size_t end = std::min(text.find(kLineEnd), text.size());
    const std::wstring_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + kLineEnd.size(), text.size()));
    return line;
}

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

EmbeddedSettings::EmbeddedSettings(std::wstring_view text) : text_(text) {
    if (!text.empty() && text.front() == kByteOrderMark) text_.erase(0, 1);
}

std::wstring_view EmbeddedSettings::Find(std::wstring_view section, std::wstring_view key) const {
    // Lines before the first section belong to a section without a name.
    std::wstring_view currentSection;
    std::wstring_view value;
    for (std::wstring_view rest = text_; !rest.empty();) {
        const std::wstring_view line = SkipLeadingSpaces(ConsumeLine(rest));
        if (line.empty()) continue;
        if (const std::optional<std::wstring_view> name = SectionName(line)) {
            currentSection = *name;
        } else if (currentSection == section) {
            const std::size_t equals = std::min(line.find(L'='), line.size());
            if (line.substr(0, equals) != key) continue;
            value = line.substr(std::min(equals + 1, line.size()));
        }
    }
    return value;
}

}  // namespace tarn
