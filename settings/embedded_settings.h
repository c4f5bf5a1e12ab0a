#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// The settings embedded in the executable, the layer below the main settings file.
class EmbeddedSettings {
  public:
    EmbeddedSettings() = default;

    /// Parses an INI text whose lines end with CR LF. Leading characters up to U+0020 are skipped
    /// in each line. "[name]" opens a section; every other line is split at its first "=", and
    /// nothing is trimmed around it. A line without "=" is a key with an empty value. The last
    /// value of a repeated key is used.
    explicit EmbeddedSettings(std::wstring_view text);

    /// Returns the value of a key, empty when there is none. Case-sensitive.
    std::wstring_view Find(std::wstring_view section, std::wstring_view key) const;

  private:
    struct Entry {
        std::wstring section;
        std::wstring key;
        std::wstring value;
    };

    void AddLine(std::wstring_view line, std::wstring& section);

    // A dozen entries at most; a search tree would only add code.
    std::vector<Entry> entries_;
};

/// Returns the embedded settings text: the resource "SETTINGS" of type RT_RCDATA
/// (`FindResourceW`), UTF-8 with or without a byte-order mark. Empty when there is no resource.
std::wstring LoadEmbeddedText();

}  // namespace tarn
