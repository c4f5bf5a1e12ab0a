#pragma once

#include <string>
#include <string_view>

namespace tarn {

/// The settings embedded in the executable, the layer below the main settings file.
class EmbeddedSettings {
  public:
    EmbeddedSettings() = default;

    /// Holds an INI text whose lines end with CR LF, with or without a byte-order mark. Leading
    /// characters up to U+0020 are skipped in each line. "[name]" opens a section; every other line
    /// is split at its first "=", and nothing is trimmed around it. A line without "=" is a key
    /// with an empty value. The last value of a repeated key is used.
    explicit EmbeddedSettings(std::wstring_view text);

    /// Returns the value of a key, empty when there is none. Case-sensitive. The view refers to
    /// this object.
    std::wstring_view Find(std::wstring_view section, std::wstring_view key) const;

  private:
    // Searched line by line: most executables have no embedded text, and the others a short one.
    std::wstring text_;
};

/// Returns the embedded settings text: the resource "SETTINGS" of type RT_RCDATA
/// (`FindResourceW`), UTF-8 with or without a byte-order mark. Empty when there is no resource.
std::wstring LoadEmbeddedText();

}  // namespace tarn
