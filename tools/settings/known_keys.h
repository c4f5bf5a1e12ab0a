#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarn::tools {

/// What a key's value has to look like.
enum class Form {
    kText,
    kClassName,
    kYes,          ///< on for "Yes" in any letter case
    kExactlyYes,   ///< on for "yes" alone
    kExactlyTrue,  ///< on for "true" alone
    kWord,         ///< one of the words, letter case counts
    kWordAnyCase,  ///< one of the words, letter case does not count
    kVersion,      ///< a version or "any"
    kVersions,     ///< versions with ";" between them
    kPath,         ///< nothing is expanded in it
    kOutputFile,   ///< environment variables and a time-stamp picture are expanded
    kFolders,      ///< folders with ";" between them, environment variables are expanded
    kClassPath,
    kJvmOptions,
    kArguments,
};

struct KnownKey {
    const wchar_t* section;
    const wchar_t* key;
    Form form;
    /// Whether a section with "+" and the built-in settings are asked too; if not, the file alone.
    bool isLayered;
    std::span<const std::wstring_view> words;
};

/// Every key that the launcher reads.
std::span<const KnownKey> KnownKeys();

/// The names of their sections, each once.
std::vector<std::wstring> KnownSections();

/// The key of that name in that section, letter case not counting; null when there is none.
const KnownKey* FindKnownKey(std::wstring_view section, std::wstring_view key);

/// The first key of that name in any section; null when there is none.
const KnownKey* FindKnownKey(std::wstring_view key);

/// The form in words: `Yes (any letter case)`, `server, favor_server`.
std::string DescribeForm(const KnownKey& key);

/// Whether only the blank that comes before the value of a "+" section spoils it: flags, words,
/// names and paths, but no lists.
bool IsSpoiltByBlank(Form form);

}  // namespace tarn::tools
