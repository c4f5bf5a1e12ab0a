#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "settings/embedded_settings.h"
#include "tools/settings/ini_encoding.h"
#include "tools/settings/settings_document.h"

namespace tarn::tools {

/// A value as a launch reads it.
struct Setting {
    std::wstring text;
    /// Its line; 0 when it is not in the file.
    std::size_t line = 0;

    explicit operator bool() const { return !text.empty(); }
};

/// A settings file and its folder: the input of every rule.
class CheckedSettings {
  public:
    /// `file` need not exist. Without `checksFiles`, rules ignore the files that the settings name.
    CheckedSettings(std::filesystem::path file, DecodedIni decoded, bool checksFiles);

    /// Reads the file and, with `checksFiles`, the built-in settings of the executable beside it.
    /// Throws Failure when the file cannot be read.
    static CheckedSettings Load(const std::filesystem::path& file, bool checksFiles);

    /// The settings that are built into an executable without a settings file.
    static CheckedSettings BuiltInto(const std::filesystem::path& executable);

    bool checksFiles() const { return checksFiles_; }

    const DecodedIni& decoded() const { return decoded_; }
    const SettingsDocument& document() const { return document_; }
    const std::filesystem::path& file() const { return file_; }
    const std::filesystem::path& folder() const { return folder_; }

    /// The executable that reads this file: the same name with the extension "exe".
    std::filesystem::path Executable() const;

    void SetEmbedded(EmbeddedSettings embedded) { embedded_ = std::move(embedded); }

    /// The effective value: the plain section's or, for a layered key, the built-in value followed
    /// by that of the "+" section.
    Setting Get(std::wstring_view section, std::wstring_view key) const;

    bool IsOn(std::wstring_view section, std::wstring_view key) const;

  private:
    std::filesystem::path file_;
    std::filesystem::path folder_;
    DecodedIni decoded_;
    SettingsDocument document_;
    EmbeddedSettings embedded_;
    bool checksFiles_;
};

/// The text in double quotes, in UTF-8, truncated when very long.
std::string Quoted(std::wstring_view text);

}  // namespace tarn::tools
