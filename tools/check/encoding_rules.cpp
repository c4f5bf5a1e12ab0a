#include "tools/check/rules.h"
#include "tools/common/ascii.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

// The limit for the expansion of environment variables, and for a command line.
constexpr std::size_t kLongestValue = 32767;

constexpr char kSaveAsUtf16[] =
    "save the file as UTF-16 with a byte-order mark (UTF-16 LE or Unicode in editors), or use "
    "ASCII characters only";

// Calls `visit` with the number and text of every section and entry.
template <typename Visitor>
void ForEachEntry(const SettingsDocument& document, const Visitor& visit) {
    for (const DocumentSection& section : document.sections()) {
        visit(section.line, section.name);
        for (const DocumentEntry& entry : section.entries) {
            visit(entry.line, entry.key + L'=' + entry.written);
        }
    }
}

// Comments may contain any characters.
std::size_t FirstLineOutsideAscii(const SettingsDocument& document) {
    std::size_t first = 0;
    ForEachEntry(document, [&](std::size_t line, std::wstring_view text) {
        if (first == 0 && !IsAscii(text)) first = line;
    });
    return first;
}

void CheckUtf8(const CheckedSettings& settings, Findings& findings) {
    const std::size_t line = FirstLineOutsideAscii(settings.document());
    if (line == 0) return;
    findings.Warning("utf-8", line,
                     "the file is in UTF-8, which Windows reads in the system's 8-bit code page: "
                     "characters outside ASCII change (\"ü\" becomes \"Ã¼\")",
                     kSaveAsUtf16);
}

void CheckUtf8Mark(const CheckedSettings& settings, Findings& findings) {
    const std::vector<DocumentSection>& sections = settings.document().sections();
    if (!sections.empty() && sections.front().line == 1) {
        findings.Error("utf-8-mark", 1,
                       "Windows reads the UTF-8 byte-order mark as three characters before \"[\", "
                       "so the section " +
                           Quoted(sections.front().name) + " and all its keys are lost",
                       "save the file without the mark, or as UTF-16");
    } else {
        findings.Note("utf-8-mark", 1,
                      "Windows reads the UTF-8 byte-order mark as three characters, which is "
                      "harmless unless the first line is a section",
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
            if (const std::size_t line = FirstLineOutsideAscii(settings.document())) {
                findings.Warning("code-page", line,
                                 "characters outside ASCII are in an 8-bit code page, which "
                                 "differs between systems",
                                 kSaveAsUtf16);
            }
            break;
        case IniEncoding::Utf16WithoutMark:
            findings.Error("utf-16-without-mark", 0,
                           "the file is in UTF-16 without a byte-order mark: Windows reads it in "
                           "the 8-bit code page, where no line is recognised",
                           "save it with the mark");
            break;
        case IniEncoding::Utf16BigEndian:
            findings.Error(
                "utf-16-big-endian", 0,
                "the file is in big-endian UTF-16, which Windows' profile functions do not read",
                "save it as UTF-16 LE");
            break;
        case IniEncoding::Utf32:
            findings.Error("utf-32", 0, "the file is in UTF-32, which Windows does not read",
                           "save it as UTF-16 LE");
            break;
    }
    if (settings.decoded().hasOddByte) {
        findings.Warning("half-character", 0, "the file ends with half a UTF-16 code unit",
                         "save it again");
    }
    ForEachEntry(settings.document(), [&](std::size_t line, std::wstring_view text) {
        if (text.find(L'\0') != std::wstring_view::npos) {
            findings.Error("zero-character", line,
                           "the line contains a null character, where Windows ends the value",
                           "remove it");
        }
        if (text.size() > kLongestValue) {
            findings.Warning("long-line", line,
                             "the line has " + std::to_string(text.size()) +
                                 " characters; Windows expands variables in at most 32,767",
                             "shorten it, for example with a wildcard such as lib\\*.jar");
        }
    });
}

}  // namespace tarn::tools
