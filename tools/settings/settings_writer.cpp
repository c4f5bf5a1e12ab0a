#include "tools/settings/settings_writer.h"

#include <algorithm>

#include "tools/common/ascii.h"
#include "tools/common/byte_io.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/settings/settings_document.h"

namespace tarn::tools {
namespace {

constexpr char kLineEnd[] = "\r\n";

std::string CommentOf(std::string_view text) {
    std::string comment;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        comment += "; " + std::string(text.substr(0, end)) + kLineEnd;
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return comment;
}

// Windows removes spaces around a value, and one pair of quotes.
std::string Quoted(const std::string& value) {
    if (value.empty()) return value;
    const char first = value.front();
    const char last = value.back();
    const bool hasQuotes = value.size() > 1 && first == last && (first == '"' || first == '\'');
    return hasQuotes || first == ' ' || last == ' ' ? '"' + value + '"' : value;
}

}  // namespace

SettingsWriter::Section& SettingsWriter::SectionOf(const std::string& name) {
    for (Section& section : sections_) {
        if (ToLowerAscii(section.name) == ToLowerAscii(name)) return section;
    }
    sections_.push_back({name, {}});
    return sections_.back();
}

void SettingsWriter::Add(std::wstring_view section, std::wstring_view key, std::string value,
                         std::string comment) {
    SectionOf(Utf8Of(section))
        .lines.push_back({Utf8Of(key), std::move(value), std::move(comment), false});
}

void SettingsWriter::AddSuggestion(std::wstring_view section, std::wstring_view key,
                                   std::string value, std::string comment) {
    SectionOf(Utf8Of(section))
        .lines.push_back({Utf8Of(key), std::move(value), std::move(comment), true});
}

void SettingsWriter::Set(const std::string& section, const std::string& key, std::string value) {
    std::vector<Line>& lines = SectionOf(section).lines;
    const auto found = std::find_if(lines.begin(), lines.end(), [&](const Line& line) {
        return ToLowerAscii(line.key) == ToLowerAscii(key);
    });
    if (found == lines.end()) {
        lines.push_back({key, std::move(value), {}, false});
    } else {
        found->value = std::move(value);
        found->isSuggestion = false;
    }
}

std::string SettingsWriter::Text() const {
    std::string text = CommentOf(heading_);
    for (const Section& section : sections_) {
        text += std::string(kLineEnd) + "[" + section.name + "]" + kLineEnd;
        for (const Line& line : section.lines) {
            text += CommentOf(line.comment) + (line.isSuggestion ? ";" : "") + line.key + "=" +
                    Quoted(line.value) + kLineEnd;
        }
    }
    CheckIsReadBack(text);
    return text;
}

void SettingsWriter::CheckIsReadBack(const std::string& text) const {
    const SettingsDocument document(WideOf(text));
    for (const Section& section : sections_) {
        for (const Line& line : section.lines) {
            if (line.isSuggestion) continue;
            const DocumentEntry* const read = document.Find(WideOf(section.name), WideOf(line.key));
            if (read != nullptr && read->value == WideOf(line.value)) continue;
            throw Failure(
                "\"" + line.key + "\" of [" + section.name +
                "] cannot be written to a settings file, which has no line breaks or "
                "other control characters in a value, and no \";\", \"[\", \"]\" or \"=\" "
                "in a name: " +
                line.value);
        }
    }
}

Bytes SettingsWriter::Content() const {
    const std::string text = Text();
    ByteWriter writer;
    if (IsAscii(std::string_view(text))) {
        writer.Put(AsBytes(text));
    } else {
        writer.U16(0xFEFF);
        writer.Text(Utf16Of(text));
    }
    return writer.Take();
}

}  // namespace tarn::tools
