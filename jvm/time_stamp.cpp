#include "jvm/time_stamp.h"

#include "base/decimal.h"

namespace tarn {

std::optional<TimeStampName> SplitTimeStamp(std::wstring_view name) {
    const std::size_t first = name.find(L'%');
    if (first == std::wstring_view::npos) return std::nullopt;
    const std::size_t last = name.rfind(L'%');
    TimeStampName parts;
    parts.before = name.substr(0, first);
    if (last > first) parts.picture = name.substr(first + 1, last - first - 1);
    parts.after = name.substr(last + 1);
    return parts;
}

std::wstring WithMilliseconds(std::wstring_view picture, unsigned milliseconds) {
    const std::wstring digits = DecimalText(static_cast<std::int32_t>(milliseconds));
    std::wstring result;
    for (const wchar_t c : picture) {
        if (c == L'L') {
            result += digits;
        } else {
            result += c;
        }
    }
    return result;
}

PictureParts SplitPicture(std::wstring_view picture, std::wstring_view letters) {
    PictureParts parts;
    bool quoted = false;
    for (std::size_t i = 0; i < picture.size();) {
        const wchar_t c = picture[i];
        std::size_t length = 1;
        if (c == L'\'' && quoted && i + 1 < picture.size() && picture[i + 1] == L'\'') {
            length = 2;
            ++parts.copied;
        } else if (c == L'\'') {
            quoted = !quoted;
        } else if (quoted || letters.find(c) == std::wstring_view::npos) {
            ++parts.copied;
        } else {
            while (i + length < picture.size() && picture[i + length] == c) ++length;
            parts.fields.push_back(picture.substr(i, length));
        }
        i += length;
    }
    return parts;
}

}  // namespace tarn
