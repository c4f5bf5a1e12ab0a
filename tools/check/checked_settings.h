#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "settings/embedded_settings.h"
#include "tools/settings/ini_encoding.h"
#include "tools/settings/settings_document.h"

namespace tarn::tools {

/// A value as a launch would read it.
struct Setting {
    std::wstring text;
    /// Where it stands; 0 when it is not there.
    std::size_t line = 0;

    explicit operator bool() const { return !text.empty(); }
};

/// A settings file and its place on the disk: what every rule looks at.
class CheckedSettings {
  public:
    /// `file` need not be there. What it names is looked for in its folder, or, without
    /// `looksAtDisk`, nowhere.
    CheckedSettings(std::filesystem::path file, DecodedIni decoded, bool looksAtDisk);

    /// Reads the file, and from the executable beside it, when there is one, the settings that are
    /// built into it. Throws Failure when the file cannot be read.
    static CheckedSettings Load(const std::filesystem::path& file, bool looksAtDisk);

    bool looksAtDisk() const { return looksAtDisk_; }

    const DecodedIni& decoded() const { return decoded_; }
    const SettingsDocument& document() const { return document_; }
    const std::filesystem::path& file() const { return file_; }
    const std::filesystem::path& folder() const { return folder_; }

    /// The executable that reads this file: the same name with "exe".
    std::filesystem::path Executable() const;

    void SetEmbedded(EmbeddedSettings embedded) { embedded_ = std::move(embedded); }

    /// The value that counts: that of the plain section, or else, for a key that is read through
    /// the layers, the built-in one and that of the section with "+" behind it.
    Setting Get(std::wstring_view section, std::wstring_view key) const;

    bool IsOn(std::wstring_view section, std::wstring_view key) const;

  private:
    std::filesystem::path file_;
    std::filesystem::path folder_;
    DecodedIni decoded_;
    SettingsDocument document_;
    EmbeddedSettings embedded_;
    bool looksAtDisk_;
};

/// "text" with double quotes around it, in UTF-8, cut when it is very long.
std::string Quoted(std::wstring_view text);

}  // namespace tarn::tools
