#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarn::tools {

/// A line "key=value" of a settings file.
struct DocumentEntry {
    std::size_t line = 0;
    std::wstring key;
    /// The value without surrounding white space, with its quotes.
    std::wstring written;
    /// What the profile functions return: `written` without the pair of single or double quotes
    /// around the whole value, if any.
    std::wstring value;
};

struct DocumentSection {
    std::size_t line = 0;
    std::wstring name;
    std::vector<DocumentEntry> entries;
};

/// A line that is neither a section, nor a comment, nor contains "=".
struct StrayLine {
    std::size_t line = 0;
    std::wstring text;
};

/// A settings file as Windows' profile functions read it, with line numbers from 1. Lines end with
/// LF, CR or both; white space around lines, keys and values is ignored; a line that begins with
/// ";" is a comment, and there is no other kind. A section's name is everything between "[" and the
/// last
/// "]" of its line.
class SettingsDocument {
  public:
    explicit SettingsDocument(std::wstring_view text);

    const std::vector<DocumentSection>& sections() const { return sections_; }
    const std::vector<StrayLine>& strayLines() const { return strayLines_; }
    /// The lines "key=value" above the first section, which are never read.
    const std::vector<DocumentEntry>& entriesAboveSections() const { return above_; }

    /// The line that Windows takes the value from: the first one with that key in the first section
    /// with that name, case-insensitively. Null when there is none.
    const DocumentEntry* Find(std::wstring_view section, std::wstring_view key) const;

  private:
    void AddLine(std::size_t number, std::wstring_view line);

    std::vector<DocumentSection> sections_;
    std::vector<DocumentEntry> above_;
    std::vector<StrayLine> strayLines_;
};

/// The text without the spaces, tabs and other control characters at both ends.
std::wstring_view TrimSpaces(std::wstring_view text);

}  // namespace tarn::tools
