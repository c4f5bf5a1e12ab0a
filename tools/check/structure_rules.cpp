#include <map>

#include "base/text.h"
#include "tools/check/rules.h"
#include "tools/check/spelling.h"
#include "tools/common/ascii.h"
#include "tools/common/text_encoding.h"
#include "tools/settings/known_keys.h"

namespace tarn::tools {
namespace {

std::string LineNumber(std::size_t line) {
    return "line " + std::to_string(line);
}

// The name of a section without the "+" of an additive one.
std::wstring_view PlainName(std::wstring_view section) {
    if (!section.empty() && section.back() == L'+') section.remove_suffix(1);
    return section;
}

bool IsKnownSection(std::wstring_view name) {
    for (const std::wstring& known : KnownSections()) {
        if (EqualsIgnoringCase(known, name)) return true;
    }
    return false;
}

// Comment syntax of other formats, which Windows reads as a key.
bool LooksLikeComment(std::wstring_view text) {
    return text.starts_with(L"#") || text.starts_with(L"//") || text.starts_with(L"--");
}

void CheckSectionName(const DocumentSection& section, SpellingHelp& spelling, Findings& findings) {
    const std::wstring_view plain = PlainName(section.name);
    if (IsKnownSection(plain)) return;
    const std::wstring trimmed(TrimSpaces(PlainName(TrimSpaces(section.name))));
    std::string advice;
    if (IsKnownSection(trimmed)) {
        advice = "spaces inside the brackets are significant: write [" + Utf8Of(trimmed) + "]";
    } else if (const std::wstring closest = spelling.ClosestWord(plain, KnownSections());
               !closest.empty()) {
        advice = "did you mean [" + Utf8Of(closest) + "]?";
    } else {
        advice = "remove it, or begin its lines with \";\"";
    }
    findings.Warning("unknown-section", section.line,
                     "section " + Quoted(section.name) + " is never read", std::move(advice));
}

void CheckKeyName(const DocumentSection& section, const DocumentEntry& entry,
                  SpellingHelp& spelling, Findings& findings) {
    const std::wstring plain(PlainName(section.name));
    if (FindKnownKey(plain, entry.key) != nullptr) return;
    if (LooksLikeComment(entry.key)) {
        findings.Warning("not-a-comment", entry.line,
                         Quoted(entry.key) + " is a key for Windows, not a comment",
                         "begin a comment with \";\"");
        return;
    }
    if (const KnownKey* const elsewhere = FindKnownKey(entry.key)) {
        findings.Warning("misplaced-key", entry.line,
                         Quoted(entry.key) + " is not read from [" + Utf8Of(plain) + "]",
                         "move it to [" + Utf8Of(elsewhere->section) + "]");
        return;
    }
    std::vector<std::wstring> here, anywhere;
    for (const KnownKey& known : KnownKeys()) {
        anywhere.emplace_back(known.key);
        if (EqualsIgnoringCase(known.section, plain)) here.emplace_back(known.key);
    }
    std::wstring closest = spelling.ClosestWord(entry.key, here);
    if (closest.empty()) closest = spelling.ClosestWord(entry.key, anywhere);
    std::string advice = "remove it, or begin the line with \";\"";
    if (const KnownKey* const meant = closest.empty() ? nullptr : FindKnownKey(closest)) {
        advice = "did you mean \"" + Utf8Of(closest) + '"';
        if (!EqualsIgnoringCase(meant->section, plain)) {
            advice += " of [" + Utf8Of(meant->section) + ']';
        }
        advice += '?';
    }
    findings.Warning(
        "unknown-key", entry.line,
        "key " + Quoted(entry.key) + " is never read in [" + Utf8Of(section.name) + ']',
        std::move(advice));
}

void CheckRepeatedKeys(const DocumentSection& section, Findings& findings) {
    std::map<std::wstring, std::size_t> seen;
    for (const DocumentEntry& entry : section.entries) {
        const auto [first, isNew] = seen.emplace(ToLowerAscii(entry.key), entry.line);
        if (isNew) continue;
        findings.Warning("repeated-key", entry.line,
                         Quoted(entry.key) + " is already in " + LineNumber(first->second) +
                             "; only the first one is read",
                         "remove one of the two");
    }
}

}  // namespace

void CheckStructure(const CheckedSettings& settings, Findings& findings) {
    const SettingsDocument& document = settings.document();
    SpellingHelp spelling;
    std::map<std::wstring, std::size_t> seen;
    for (const DocumentSection& section : document.sections()) {
        const auto [first, isNew] = seen.emplace(ToLowerAscii(section.name), section.line);
        if (!isNew) {
            findings.Warning("repeated-section", section.line,
                             "section " + Quoted(section.name) + " already begins in " +
                                 LineNumber(first->second) + "; Windows reads only that one",
                             "move the keys there");
        }
        CheckSectionName(section, spelling, findings);
        CheckRepeatedKeys(section, findings);
        if (!IsKnownSection(PlainName(section.name))) continue;
        for (const DocumentEntry& entry : section.entries) {
            CheckKeyName(section, entry, spelling, findings);
        }
    }
    for (const DocumentEntry& entry : document.entriesAboveSections()) {
        findings.Warning("outside-section", entry.line,
                         Quoted(entry.key) + " is above the first section, where nothing is read",
                         "move it below its [section]");
    }
    for (const StrayLine& stray : document.strayLines()) {
        const bool isSection = stray.text.starts_with(L"[");
        findings.Warning(
            "stray-line", stray.line,
            Quoted(stray.text) + (isSection ? " has no closing \"]\"" : " has no \"=\""),
            isSection ? "close the bracket; otherwise the keys below it belong to the section above"
                      : "write key=value, or begin a comment with \";\"");
    }
}

void CheckAdditiveSections(const CheckedSettings& settings, Findings& findings) {
    for (const DocumentSection& section : settings.document().sections()) {
        if (!section.name.ends_with(L'+')) continue;
        const std::wstring plain(PlainName(section.name));
        if (!IsKnownSection(plain)) continue;
        for (const DocumentEntry& entry : section.entries) {
            const KnownKey* const known = FindKnownKey(plain, entry.key);
            if (known == nullptr || entry.value.empty()) continue;
            const DocumentEntry* const overriding = settings.document().Find(plain, entry.key);
            if (known->source == SettingSource::MainFile) {
                findings.Warning("additive-unread", entry.line,
                                 Quoted(entry.key) + " is read from [" + Utf8Of(plain) + "] only",
                                 "move it there");
            } else if (overriding != nullptr && !overriding->value.empty()) {
                findings.Warning("additive-overridden", entry.line,
                                 Quoted(entry.key) + " has a value in [" + Utf8Of(plain) + "] (" +
                                     LineNumber(overriding->line) + "), so this one is not read",
                                 "move both to one of the two sections");
            } else if (!AllowsLeadingSpace(known->form)) {
                findings.Warning("additive-blank", entry.line,
                                 "the value of a \"+\" section has a leading space, which " +
                                     Quoted(entry.key) + " does not allow",
                                 "move it to [" + Utf8Of(plain) + "]");
            }
        }
    }
}

}  // namespace tarn::tools
