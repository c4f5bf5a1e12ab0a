#include "tools/check/checked_settings.h"

#include "base/text.h"
#include "settings/layered_settings.h"
#include "tools/check/known_keys.h"
#include "tools/console/text_encoding.h"
#include "tools/console/whole_file.h"

namespace tarn::tools {
namespace {

// A settings file is a page of text; what is this large is some other file.
constexpr std::uintmax_t kLargestFile = 16U << 20U;

constexpr std::size_t kLongestQuote = 200;

}  // namespace

CheckedSettings::CheckedSettings(std::filesystem::path file, DecodedIni decoded, bool looksAtDisk)
    : file_(std::move(file)),
      folder_(file_.has_parent_path() ? file_.parent_path() : std::filesystem::path(".")),
      decoded_(std::move(decoded)),
      document_(decoded_.text),
      looksAtDisk_(looksAtDisk) {}

CheckedSettings CheckedSettings::Load(const std::filesystem::path& file, bool looksAtDisk) {
    return CheckedSettings(file, DecodeIni(ReadWholeFile(file, kLargestFile)), looksAtDisk);
}

std::filesystem::path CheckedSettings::Executable() const {
    std::filesystem::path executable = file_;
    return executable.replace_extension(".exe");
}

Setting CheckedSettings::Get(std::wstring_view section, std::wstring_view key) const {
    const DocumentEntry* const plain = document_.Find(section, key);
    if (plain != nullptr && !plain->value.empty()) return {plain->value, plain->line};
    const KnownKey* const known = FindKnownKey(section, key);
    if (known != nullptr && known->isLayered) {
        const DocumentEntry* const more = document_.Find(std::wstring(section) + L'+', key);
        if (more != nullptr && !more->value.empty()) {
            return {AppendValue({}, more->value), more->line};
        }
    }
    return {};
}

bool CheckedSettings::IsOn(std::wstring_view section, std::wstring_view key) const {
    const KnownKey* const known = FindKnownKey(section, key);
    const std::wstring value = Get(section, key).text;
    if (known == nullptr) return false;
    if (known->form == Form::kYes) return EqualsIgnoringCase(value, L"Yes");
    if (known->form == Form::kExactlyTrue) return value == L"true";
    return known->form == Form::kExactlyYes && value == L"yes";
}

std::string Quoted(std::wstring_view text) {
    const bool isLong = text.size() > kLongestQuote;
    return '"' + Utf8Of(text.substr(0, kLongestQuote)) + (isLong ? "…\"" : "\"");
}

}  // namespace tarn::tools
