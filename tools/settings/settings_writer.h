#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/common/whole_file.h"

namespace tarn::tools {

/// A settings file as it is written for an application: its values, and what they are for. All
/// texts are UTF-8.
class SettingsFile {
  public:
    explicit SettingsFile(std::string heading) : heading_(std::move(heading)) {}

    /// Adds a value with a comment of one or more lines above it, which may be empty.
    void Add(std::wstring_view section, std::wstring_view key, std::string value,
             std::string comment = {});

    /// Adds a value that is commented out, for those who may want it.
    void AddSuggestion(std::wstring_view section, std::wstring_view key, std::string value,
                       std::string comment);

    /// Sets a value that was added, or adds one. Letter case of the names does not count.
    void Set(const std::string& section, const std::string& key, std::string value);

    /// The whole text with CR LF.
    std::string Text() const;

    /// The file's bytes: ASCII, or UTF-16 with a byte-order mark when there are other letters, for
    /// nothing else is read the same way on every Windows.
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

    std::string heading_;
    std::vector<Section> sections_;
};

}  // namespace tarn::tools
