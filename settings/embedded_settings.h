#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// The settings text that is built into the executable, as section, key and value. The lowest
/// layer: the settings file beside the executable goes over it.
class EmbeddedSettings {
  public:
    EmbeddedSettings() = default;

    /// Parses an INI text with lines ended by CR LF. Characters up to the blank are skipped at the
    /// start of a line; "[name]" opens a section; every other line is split at its first "=" and
    /// nothing is trimmed around it. A line without "=" is a key with an empty value. A key that
    /// stands twice keeps its last value.
    explicit EmbeddedSettings(std::wstring_view text);

    /// The value of a key, empty when there is none. Letter case counts.
    std::wstring_view Find(std::wstring_view section, std::wstring_view key) const;

  private:
    struct Entry {
        std::wstring section;
        std::wstring key;
        std::wstring value;
    };

    void AddLine(std::wstring_view line, std::wstring& section);

    // Usually none, a dozen at most: a search tree would only be larger.
    std::vector<Entry> entries_;
};

}  // namespace tarn
