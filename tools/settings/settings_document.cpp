#include "tools/settings/settings_document.h"

#include "base/text.h"

namespace tarn::tools {
namespace {

std::wstring_view WithoutQuotes(std::wstring_view text) {
    const bool isQuoted = text.size() >= 2 && text.front() == text.back() &&
                          (text.front() == L'"' || text.front() == L'\'');
    return isQuoted ? text.substr(1, text.size() - 2) : text;
}

}  // namespace

std::wstring_view TrimSpaces(std::wstring_view text) {
    while (!text.empty() && text.front() <= L' ') text.remove_prefix(1);
    while (!text.empty() && text.back() <= L' ') text.remove_suffix(1);
    return text;
}

SettingsDocument::SettingsDocument(std::wstring_view text) {
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::size_t end = text.find_first_of(L"\r\n");
        AddLine(number, TrimSpaces(text.substr(0, end)));
        if (end == std::wstring_view::npos) return;
        const bool isPair = text.substr(end, 2) == L"\r\n";
        text.remove_prefix(end + (isPair ? 2 : 1));
    }
}

void SettingsDocument::AddLine(std::size_t number, std::wstring_view line) {
    if (line.empty() || line.front() == L';') return;
    if (line.front() == L'[') {
        const std::size_t end = line.rfind(L']');
        if (end == std::wstring_view::npos) {
            strayLines_.push_back({number, std::wstring(line)});
        } else {
            sections_.push_back({number, std::wstring(line.substr(1, end - 1)), {}});
        }
        return;
    }
    const std::size_t equals = line.find(L'=');
    if (equals == std::wstring_view::npos) {
        strayLines_.push_back({number, std::wstring(line)});
        return;
    }
    const std::wstring_view written = TrimSpaces(line.substr(equals + 1));
    std::vector<DocumentEntry>& entries = sections_.empty() ? above_ : sections_.back().entries;
    entries.push_back({number, std::wstring(TrimSpaces(line.substr(0, equals))),
                       std::wstring(written), std::wstring(WithoutQuotes(written))});
}

const DocumentEntry* SettingsDocument::Find(std::wstring_view section,
                                            std::wstring_view key) const {
    for (const DocumentSection& candidate : sections_) {
        if (!EqualsIgnoringCase(candidate.name, section)) continue;
        for (const DocumentEntry& entry : candidate.entries) {
            if (EqualsIgnoringCase(entry.key, key)) return &entry;
        }
        return nullptr;
    }
    return nullptr;
}

}  // namespace tarn::tools
