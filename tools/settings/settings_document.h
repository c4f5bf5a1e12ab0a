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
    /// Without the blanks around it, quotes as they are written.
    std::wstring written;
    /// What Windows' profile functions give: without the one pair of quotes, single or double, that
    /// may stand around the whole value.
    std::wstring value;
};

struct DocumentSection {
    std::size_t line = 0;
    std::wstring name;
    std::vector<DocumentEntry> entries;
};

/// A line that is neither a section, nor a comment, nor has a "=".
struct StrayLine {
    std::size_t line = 0;
    std::wstring text;
};

/// A settings file as Windows' profile functions see it, with line numbers. Lines end with LF, CR
/// or both; blanks around lines, keys and values do not count; a line that begins with ";" is a
/// comment, and there is no other kind. A section's name is all between "[" and the last "]" of its
/// line.
class SettingsDocument {
  public:
    explicit SettingsDocument(std::wstring_view text);

    const std::vector<DocumentSection>& sections() const { return sections_; }
    const std::vector<StrayLine>& strayLines() const { return strayLines_; }

    /// The lines "key=value" above the first section, which nothing reads.
    const std::vector<DocumentEntry>& entriesAboveSections() const { return above_; }

    /// The line that Windows takes the value from: the first one of that key in the first section
    /// of that name. Letter case does not count. Null when there is none.
    const DocumentEntry* Find(std::wstring_view section, std::wstring_view key) const;

  private:
    void AddLine(std::size_t number, std::wstring_view line);

    std::vector<DocumentSection> sections_;
    std::vector<DocumentEntry> above_;
    std::vector<StrayLine> strayLines_;
};

/// The text without the blanks, tabs and other control characters at both ends.
std::wstring_view TrimBlanks(std::wstring_view text);

}  // namespace tarn::tools
