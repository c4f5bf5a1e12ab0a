#include <algorithm>
#include <array>

#include "base/text.h"
#include "settings/keys.h"
#include "tools/check/rules.h"
#include "tools/check/spelling.h"
#include "tools/common/text_encoding.h"
#include "tools/settings/known_keys.h"

namespace tarn::tools {
namespace {

bool MeansOff(std::wstring_view value) {
    constexpr std::array<std::wstring_view, 7> kOff = {L"no",   L"false", L"off",     L"0",
                                                       L"none", L"n",     L"disabled"};
    for (const std::wstring_view off : kOff) {
        if (EqualsIgnoringCase(value, off)) return true;
    }
    return false;
}

std::string KeywordFor(SettingForm form) {
    return form == SettingForm::Yes ? "Yes" : form == SettingForm::ExactlyTrue ? "true" : "yes";
}

void CheckFlag(const KnownKey& key, const DocumentEntry& entry, Findings& findings) {
    if (FlagValue(key.form, entry.value).value_or(false) || MeansOff(entry.value)) return;
    const std::string word = KeywordFor(key.form);
    const bool onlyCase =
        EqualsIgnoringCase(entry.value, key.form == SettingForm::ExactlyTrue ? L"true" : L"yes");
    findings.Warning(
        "flag", entry.line,
        '"' + Utf8Of(key.key) + "\" is off: " + Quoted(entry.value) + " is not " + word +
            (onlyCase ? " (case-sensitive)" : ""),
        "write " + Utf8Of(key.key) + '=' + word + " to turn it on, or remove the line");
}

// A value that is not a keyword but has the effect of the default.
bool IsHarmless(const KnownKey& key, std::wstring_view value) {
    return std::wstring_view(key.key) == keys::kVmProvider && EqualsIgnoringCase(value, L"sun");
}

std::string ConsequenceOf(const KnownKey& key) {
    if (std::wstring_view(key.key) == keys::kJvmSource) return "no registered runtime is searched";
    return "it is ignored";
}

void CheckKeyword(const KnownKey& key, const DocumentEntry& entry, Findings& findings) {
    std::vector<std::wstring> words;
    for (const std::wstring_view word : key.keywords) {
        const bool isSame = key.form == SettingForm::KeywordAnyCase
                                ? EqualsIgnoringCase(word, entry.value)
                                : word == entry.value;
        if (isSame) return;
        words.emplace_back(word);
    }
    if (IsHarmless(key, entry.value)) return;
    const std::wstring closest = ClosestWord(entry.value, words);
    std::string advice = closest.empty() ? "write " + DescribeForm(key) + ", or remove the line"
                                         : "did you mean " + Utf8Of(closest) + "?";
    std::string message = '"' + Utf8Of(key.key) + "\" does not accept " + Quoted(entry.value) +
                          ": " + ConsequenceOf(key);
    if (!closest.empty() && EqualsIgnoringCase(closest, entry.value))
        message += " (case-sensitive)";
    findings.Warning("word", entry.line, std::move(message), std::move(advice));
}

void CheckKeywordList(const KnownKey& key, const DocumentEntry& entry, Findings& findings) {
    const std::vector<std::wstring> words(key.keywords.begin(), key.keywords.end());
    for (const std::wstring& piece : Split(entry.value, L';')) {
        const std::wstring_view written = TrimWhiteSpace(piece);
        const bool isKnown = std::any_of(words.begin(), words.end(), [&](const auto& word) {
            return EqualsIgnoringCase(word, written);
        });
        if (isKnown || written.empty()) continue;
        const std::wstring closest = ClosestWord(written, words);
        findings.Warning("word", entry.line,
                         '"' + Utf8Of(key.key) + "\" does not accept " + Quoted(written) +
                             ": the word is ignored",
                         closest.empty() ? "write " + DescribeForm(key) + ", or remove the word"
                                         : "did you mean " + Utf8Of(closest) + "?");
    }
}

void CheckEntry(const KnownKey& key, const DocumentEntry& entry, Findings& findings) {
    if (entry.value.empty()) return;
    switch (key.form) {
        case SettingForm::Yes:
        case SettingForm::ExactlyYes:
        case SettingForm::ExactlyTrue:
            CheckFlag(key, entry, findings);
            return;
        case SettingForm::Keyword:
        case SettingForm::KeywordAnyCase:
            CheckKeyword(key, entry, findings);
            return;
        case SettingForm::Keywords:
            CheckKeywordList(key, entry, findings);
            return;
        default:
            return;
    }
}

// Lists in which quotes are syntax.
bool HasQuoteSyntax(SettingForm form) {
    return form == SettingForm::JvmOptions || form == SettingForm::Arguments;
}

void CheckEntryQuotes(const KnownKey& key, const DocumentEntry& entry, Findings& findings) {
    const bool isStripped = entry.value.size() != entry.written.size();
    const std::string name = '"' + Utf8Of(key.key) + '"';
    if (HasQuoteSyntax(key.form)) {
        // Without spaces and inner quotes the pair is redundant.
        if (isStripped && entry.value.find_first_of(L" \"") != std::wstring::npos) {
            findings.Warning("quotes-removed", entry.line,
                             "Windows removes the quotes at both ends of " + name + ", leaving " +
                                 Quoted(entry.value),
                             "put another pair of quotes around the whole value");
        }
        return;
    }
    if (entry.value.find(L'"') != std::wstring::npos) {
        findings.Warning("quotes-kept", entry.line,
                         "the quotes in " + name + " become part of it: " + Quoted(entry.value),
                         "remove them; spaces require no quotes here");
    } else if (isStripped && entry.value != TrimSpaces(entry.value)) {
        findings.Warning("quoted-blanks", entry.line,
                         "the quotes preserve the spaces at the ends of " + name, "remove both");
    }
}

// Visits the effective entries of plain and of additive sections.
template <typename Visitor>
void ForEachKnown(const SettingsDocument& document, const Visitor& visit) {
    for (const KnownKey& key : KnownKeys()) {
        for (const wchar_t* const ending : {L"", L"+"}) {
            const std::wstring section = std::wstring(key.section) + ending;
            if (const DocumentEntry* const entry = document.Find(section, key.key))
                visit(key, *entry);
        }
    }
}

}  // namespace

void CheckKeywords(const CheckedSettings& settings, Findings& findings) {
    ForEachKnown(settings.document(), [&](const KnownKey& key, const DocumentEntry& entry) {
        CheckEntry(key, entry, findings);
    });
}

void CheckQuotes(const CheckedSettings& settings, Findings& findings) {
    ForEachKnown(settings.document(), [&](const KnownKey& key, const DocumentEntry& entry) {
        CheckEntryQuotes(key, entry, findings);
    });
}

}  // namespace tarn::tools
