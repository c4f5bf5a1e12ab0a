#include "tools/check/rules.h"
#include "tools/common/ascii.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

// Environment variables are not expanded in longer texts, and no command line takes one.
constexpr std::size_t kLongestValue = 32767;

constexpr char kSaveAsUtf16[] =
    "save the file as UTF-16 with a byte-order mark (editors call it UTF-16 LE or Unicode), or use "
    "ASCII letters only";

// Calls `visit` for every line that has a meaning, with its number.
template <typename Visitor>
void ForEachEntry(const SettingsDocument& document, const Visitor& visit) {
    for (const DocumentSection& section : document.sections()) {
        visit(section.line, section.name);
        for (const DocumentEntry& entry : section.entries) {
            visit(entry.line, entry.key + L'=' + entry.written);
        }
    }
}

// Comments may hold any letters: nobody reads them.
std::size_t FirstLineWithLetters(const SettingsDocument& document) {
    std::size_t first = 0;
    ForEachEntry(document, [&](std::size_t line, std::wstring_view text) {
        if (first == 0 && !IsAscii(text)) first = line;
    });
    return first;
}

void CheckUtf8(const CheckedSettings& settings, Findings& findings) {
    const std::size_t line = FirstLineWithLetters(settings.document());
    if (line == 0) return;
    findings.Warning("utf-8", line,
                     "the file is in UTF-8, which Windows reads as the system's 8-bit code page: "
                     "letters outside ASCII become others (\"ü\" becomes \"Ã¼\")",
                     kSaveAsUtf16);
}

void CheckUtf8Mark(const CheckedSettings& settings, Findings& findings) {
    const std::vector<DocumentSection>& sections = settings.document().sections();
    if (!sections.empty() && sections.front().line == 1) {
        findings.Error("utf-8-mark", 1,
                       "Windows takes the UTF-8 byte-order mark for three letters before \"[\", so "
                       "that the section " +
                           Quoted(sections.front().name) + " and all its keys are lost",
                       "save the file without the mark, or as UTF-16");
    } else {
        findings.Note("utf-8-mark", 1,
                      "Windows takes the UTF-8 byte-order mark for three letters; it does no harm "
                      "before a line that is no section",
                      "save the file without the mark, or as UTF-16");
    }
    CheckUtf8(settings, findings);
}

}  // namespace

void CheckEncoding(const CheckedSettings& settings, Findings& findings) {
    switch (settings.decoded().encoding) {
        case IniEncoding::Ascii:
        case IniEncoding::Utf16:
            break;
        case IniEncoding::Utf8:
            CheckUtf8(settings, findings);
            break;
        case IniEncoding::Utf8WithMark:
            CheckUtf8Mark(settings, findings);
            break;
        case IniEncoding::CodePage:
            if (const std::size_t line = FirstLineWithLetters(settings.document())) {
                findings.Warning(
                    "code-page", line,
                    "letters outside ASCII are in an 8-bit code page, which is another "
                    "one on other users' systems",
                    kSaveAsUtf16);
            }
            break;
        case IniEncoding::Utf16WithoutMark:
            findings.Error("utf-16-without-mark", 0,
                           "the file is in UTF-16 without a byte-order mark: Windows reads it in "
                           "the 8-bit code page, where no line means anything",
                           "save it with the mark");
            break;
        case IniEncoding::Utf16BigEndian:
            findings.Error("utf-16-big-endian", 0,
                           "the file is in UTF-16 with the high byte first, which Windows' profile "
                           "functions do not read",
                           "save it as UTF-16 LE");
            break;
        case IniEncoding::Utf32:
            findings.Error("utf-32", 0, "the file is in UTF-32, which Windows does not read",
                           "save it as UTF-16 LE");
            break;
    }
    if (settings.decoded().hasOddByte) {
        findings.Warning("half-character", 0, "the file ends with half of a UTF-16 character",
                         "save it again");
    }
    ForEachEntry(settings.document(), [&](std::size_t line, std::wstring_view text) {
        if (text.find(L'\0') != std::wstring_view::npos) {
            findings.Error("zero-character", line,
                           "the line holds a zero character, where Windows ends the value",
                           "remove it");
        }
        if (text.size() > kLongestValue) {
            findings.Warning("long-line", line,
                             "the line has " + std::to_string(text.size()) +
                                 " characters; Windows takes at most 32,767 wherever it expands "
                                 "variables",
                             "shorten it, for example with a wildcard such as lib\\*.jar");
        }
    });
}

}  // namespace tarn::tools
