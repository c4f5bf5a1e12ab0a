#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tarn::tools {

/// How a setting's text is read.
enum class SettingForm {
    Text,
    YesInAnyCase,  ///< a flag, on for "Yes" in any letter case
    ExactlyYes,    ///< a flag, on for "yes" and nothing else
    ExactlyTrue,   ///< a flag, on for "true" and nothing else
};

/// Where a setting is looked for.
enum class SettingReader {
    MainFile,  ///< the settings file alone
    Layered,   ///< the file over its "+" sections over the text built into the executable
    PerUser,   ///< the user's own file when there is one, else layered
};

/// One key that the launcher reads.
struct SettingRow {
    const wchar_t* section;
    const wchar_t* key;
    SettingReader reader;
    SettingForm form;
};

/// All of them, by section.
std::span<const SettingRow> SettingRows();

/// What a launch makes of a value of that form: "on" or "off", nothing for a text.
std::string_view MeaningOf(SettingForm form, const std::wstring& value);

}  // namespace tarn::tools
