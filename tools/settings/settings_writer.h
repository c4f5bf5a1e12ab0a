#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/common/whole_file.h"

namespace tarn::tools {

/// Composes the settings file of an application: values, each with a comment. Texts are UTF-8.
class SettingsWriter {
  public:
    explicit SettingsWriter(std::string heading) : heading_(std::move(heading)) {}

    /// Adds a value below a comment of any number of lines, which may be empty.
    void Add(std::wstring_view section, std::wstring_view key, std::string value,
             std::string comment = {});

    /// Adds a value that is commented out.
    void AddSuggestion(std::wstring_view section, std::wstring_view key, std::string value,
                       std::string comment);

    /// Sets a value that was added before, matching names case-insensitively, or adds one.
    void Set(const std::string& section, const std::string& key, std::string value);

    /// The whole text; lines end with CR LF. Throws Failure for a name or value that Windows would
    /// read differently, such as one with a line break.
    std::string Text() const;

    /// The bytes of the file: ASCII, or UTF-16 with a byte-order mark when the text has other
    /// characters. Windows reads no other encoding the same way on every system.
    Bytes Content() const;

  private:
    struct Line {
        std::string key;
        std::string value;
        std::string comment;
        bool isSuggestion = false;
    };
    struct Section {
        std::string name;
        std::vector<Line> lines;
    };

    Section& SectionOf(const std::string& name);
    void CheckIsReadBack(const std::string& text) const;

    std::string heading_;
    std::vector<Section> sections_;
};

}  // namespace tarn::tools
