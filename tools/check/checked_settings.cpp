#include "tools/check/checked_settings.h"

#include "settings/layered_settings.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/common/whole_file.h"
#include "tools/image/executable.h"
#include "tools/settings/known_keys.h"

namespace tarn::tools {
namespace {

// A larger file is not a settings file.
constexpr std::uintmax_t kLargestFile = 16U << 20U;

constexpr std::size_t kLongestQuote = 200;

// An executable that cannot be read has no built-in settings; reporting it is up to other commands.
EmbeddedSettings EmbeddedSettingsOf(const std::filesystem::path& executable) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(executable, error)) return {};
    try {
        const Bytes content = ReadWholeFile(executable);
        const ResourceTree resources = Executable(content).Resources();
        const Bytes* const text =
            FindResource(resources, kResourceData, std::u16string(u"SETTINGS"));
        if (text == nullptr) return {};
        return EmbeddedSettings(WideOf(AsText(*text)));
    } catch (const Failure&) {
        return {};
    }
}

}  // namespace

CheckedSettings::CheckedSettings(std::filesystem::path file, DecodedIni decoded, bool checksFiles)
    : file_(std::move(file)),
      folder_(file_.has_parent_path() ? file_.parent_path() : std::filesystem::path(".")),
      decoded_(std::move(decoded)),
      document_(decoded_.text),
      checksFiles_(checksFiles) {}

CheckedSettings CheckedSettings::Load(const std::filesystem::path& file, bool checksFiles) {
    CheckedSettings settings(file, DecodeIni(ReadWholeFile(file, kLargestFile)), checksFiles);
    if (checksFiles) settings.SetEmbedded(EmbeddedSettingsOf(settings.Executable()));
    return settings;
}

CheckedSettings CheckedSettings::BuiltInto(const std::filesystem::path& executable) {
    CheckedSettings settings(executable, {}, true);
    settings.SetEmbedded(EmbeddedSettingsOf(executable));
    return settings;
}

std::filesystem::path CheckedSettings::Executable() const {
    std::filesystem::path executable = file_;
    return executable.replace_extension(".exe");
}

Setting CheckedSettings::Get(std::wstring_view section, std::wstring_view key) const {
    const DocumentEntry* const plain = document_.Find(section, key);
    if (plain != nullptr && !plain->value.empty()) return {plain->value, plain->line};
    const KnownKey* const known = FindKnownKey(section, key);
    if (known == nullptr || known->source == SettingSource::MainFile) return {};
    const DocumentEntry* const more = document_.Find(std::wstring(section) + L'+', key);
    const bool hasMore = more != nullptr && !more->value.empty();
    return {AppendValue(embedded_.Find(section, key), hasMore ? more->value : std::wstring()),
            hasMore ? more->line : 0};
}

bool CheckedSettings::IsOn(std::wstring_view section, std::wstring_view key) const {
    const KnownKey* const known = FindKnownKey(section, key);
    return known != nullptr && FlagValue(known->form, Get(section, key).text).value_or(false);
}

std::string Quoted(std::wstring_view text) {
    const bool isLong = text.size() > kLongestQuote;
    return '"' + Utf8Of(text.substr(0, kLongestQuote)) + (isLong ? "…\"" : "\"");
}

}  // namespace tarn::tools
