#include "tools/settings/embedded_settings_text.h"

#include <algorithm>
#include <array>
#include <utility>

#include "settings/keys.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

// Of Windows-1252, what differs from ISO 8859-1; 0 is undefined.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

constexpr std::array kKnownNames = {keys::kApplication,
                                    keys::kApplicationType,
                                    keys::kOmitServiceName,
                                    keys::kSingleInstance,
                                    keys::kFailureCheck,
                                    keys::kOverrideWorkingDir,
                                    keys::kPairProduct,
                                    keys::kPairReturnCode,
                                    keys::kEmbeddedJar,
                                    keys::kOutputFile,
                                    keys::kOutputAppend,
                                    keys::kErrorFile,
                                    keys::kErrorAppend,
                                    keys::kCmd,
                                    keys::kJavaRuntimeEnvironment,
                                    keys::kMinimumVersion,
                                    keys::kMaximumVersion,
                                    keys::kPreferredVersions,
                                    keys::kJrePath,
                                    keys::kJvmType,
                                    keys::kJvmSource,
                                    keys::kVmProvider,
                                    keys::kMainClass,
                                    keys::kSystemPath,
                                    keys::kLibraryPath,
                                    keys::kVirtualMachineParameters,
                                    keys::kClassPath,
                                    keys::kProductInformation,
                                    keys::kDisplay};

struct Setting {
    std::string key;
    std::string value;
};

struct Section {
    std::string name;
    std::vector<Setting> settings;
};

bool IsBlank(char letter) {
    return letter == ' ' || letter == '\t' || letter == '\r';
}

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

std::string InSmallLetters(std::string_view text) {
    std::string small(text);
    for (char& letter : small) {
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
    return small;
}

bool IsSame(std::string_view left, std::string_view right) {
    return InSmallLetters(left) == InSmallLetters(right);
}

// As the launcher spells it, if it is a name of the launcher's.
std::string Spelled(std::string_view name) {
    for (const wchar_t* const known : kKnownNames) {
        std::string text = Utf8Of(std::wstring_view(known));
        if (IsSame(text, name)) return text;
    }
    return std::string(name);
}

std::string_view WithoutQuotes(std::string_view value) {
    const bool isQuoted = value.size() >= 2 && value.front() == value.back() &&
                          (value.front() == '"' || value.front() == '\'');
    return isQuoted ? value.substr(1, value.size() - 2) : value;
}

Section& SectionOf(std::vector<Section>& sections, std::string_view name) {
    for (Section& section : sections) {
        if (IsSame(section.name, name)) return section;
    }
    sections.push_back({Spelled(name), {}});
    return sections.back();
}

void AddSetting(Section& section, std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return;
    const std::string_view key = Trimmed(line.substr(0, equals));
    const bool isThere =
        std::any_of(section.settings.begin(), section.settings.end(),
                    [&](const Setting& setting) { return IsSame(setting.key, key); });
    if (isThere || key.empty()) return;
    section.settings.push_back(
        {Spelled(key), std::string(WithoutQuotes(Trimmed(line.substr(equals + 1))))});
}

std::vector<Section> Parse(std::string_view settings) {
    std::vector<Section> sections;
    // Lines above the first section are nobody's.
    Section* current = nullptr;
    while (!settings.empty()) {
        const std::size_t end = settings.find('\n');
        const std::string_view line = Trimmed(settings.substr(0, end));
        settings.remove_prefix(end == std::string_view::npos ? settings.size() : end + 1);
        if (line.empty() || line.front() == ';') continue;
        const std::size_t bracket = line.find(']');
        if (line.front() == '[') {
            if (bracket != std::string_view::npos) {
                current = &SectionOf(sections, line.substr(1, bracket - 1));
            }
        } else if (current != nullptr) {
            AddSetting(*current, line);
        }
    }
    return sections;
}

// Read from the file beside the executable alone.
bool IsForFilesOnly(std::string_view section) {
    return IsSame(section, Utf8Of(std::wstring_view(keys::kProductInformation))) ||
           IsSame(section, Utf8Of(std::wstring_view(keys::kDisplay))) ||
           (!section.empty() && section.back() == '+');
}

bool IsUtf8(std::string_view text) {
    // Every broken sequence becomes U+FFFD, and the way back is then another one.
    return Utf8Of(WideOf(text)) == text;
}

std::string FromUtf16(ByteSpan file, bool isBigEndian) {
    std::u16string text;
    for (std::size_t at = 0; at + 1 < file.size(); at += 2) {
        const auto low = static_cast<unsigned>(file[at + (isBigEndian ? 1 : 0)]);
        const auto high = static_cast<unsigned>(file[at + (isBigEndian ? 0 : 1)]);
        text += static_cast<char16_t>(high << 8 | low);
    }
    return Utf8Of(std::u16string_view(text));
}

}  // namespace

std::string DecodeSettingsFile(ByteSpan file) {
    const std::string_view text(reinterpret_cast<const char*>(file.data()), file.size());
    if (text.substr(0, 2) == "\xFF\xFE") return FromUtf16(file.subspan(2), false);
    if (text.substr(0, 2) == "\xFE\xFF") return FromUtf16(file.subspan(2), true);
    if (text.substr(0, 3) == "\xEF\xBB\xBF") return std::string(text.substr(3));
    if (IsUtf8(text)) return std::string(text);
    std::string decoded;
    for (const char byte : text) {
        const auto code = static_cast<unsigned char>(byte);
        const bool isSpecial = code >= 0x80 && code < 0xA0 && kWindows1252[code - 0x80U] != 0;
        AppendUtf8(decoded, isSpecial ? kWindows1252[code - 0x80U] : code);
    }
    return decoded;
}

std::string EmbeddedSettingsText(std::string_view settings, std::vector<std::string>& warnings) {
    std::string text;
    for (const Section& section : Parse(settings)) {
        if (IsForFilesOnly(section.name)) {
            warnings.push_back("section [" + section.name +
                               "] has no effect inside an executable, only in the settings file "
                               "beside it; it is left out");
            continue;
        }
        text += "[" + section.name + "]\r\n";
        for (const Setting& setting : section.settings) {
            text += setting.key + "=" + setting.value + "\r\n";
        }
    }
    return text;
}

}  // namespace tarn::tools
