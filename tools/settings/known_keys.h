// Every key that the launcher reads: where it is read from and what its value means. The names
// themselves are settings/keys.h.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarn::tools {

/// The syntax of a value.
enum class SettingForm {
    Text,
    ClassName,
    Yes,             ///< a flag: on for "Yes" in any case
    ExactlyYes,      ///< a flag: on for "yes" only
    ExactlyTrue,     ///< a flag: on for "true" only
    Keyword,         ///< one of the keywords, case-sensitive
    KeywordAnyCase,  ///< one of the keywords, case-insensitive
    Keywords,        ///< some of the keywords, separated by ";", case-insensitive
    Version,         ///< a version or "any"
    Versions,        ///< versions separated by ";"
    Path,            ///< nothing is expanded
    OutputFile,      ///< environment variables and a time stamp are expanded
    ArchiveFile,     ///< the start of a file's name, then jars, separated by ";"
    Folders,         ///< folders separated by ";", environment variables are expanded
    ClassPath,
    JvmOptions,
    Arguments,
};

/// The layers that a launch reads a key from.
enum class SettingSource {
    MainFile,  ///< the settings file beside the executable
    Layered,   ///< that file, its "+" sections and the built-in settings
    PerUser,   ///< the user's own file where it applies, otherwise layered
};

struct KnownKey {
    const wchar_t* section;
    const wchar_t* key;
    SettingForm form;
    SettingSource source;
    std::span<const std::wstring_view> keywords;
};

/// All keys, grouped by section.
std::span<const KnownKey> KnownKeys();

/// The names of their sections, each once.
std::vector<std::wstring> KnownSections();

/// The key with that name in that section, case-insensitively; null for an unknown one.
const KnownKey* FindKnownKey(std::wstring_view section, std::wstring_view key);

/// The first key with that name in any section; null for an unknown one.
const KnownKey* FindKnownKey(std::wstring_view key);

/// Whether a flag with this value is on; nothing for a key that is not a flag.
std::optional<bool> FlagValue(SettingForm form, std::wstring_view value);

/// The form in words, for `tarn check --keys`.
std::string DescribeForm(const KnownKey& key);

/// Whether the value may begin with the space that precedes the values of a "+" section: true for
/// lists and texts, false for flags, keywords, names and paths.
bool AllowsLeadingSpace(SettingForm form);

}  // namespace tarn::tools
