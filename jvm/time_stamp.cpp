#include "jvm/time_stamp.h"

#include <algorithm>

#include "base/text.h"

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

std::wstring_view ConsumeField(std::wstring_view& picture, std::wstring_view letters,
                               std::size_t& copied) {
    bool quoted = false;
    for (std::size_t i = 0; i < picture.size(); ++i) {
        const wchar_t c = picture[i];
        if (c == L'\'') {
            if (quoted && i + 1 < picture.size() && picture[i + 1] == c) {
                ++copied;
                ++i;
            } else {
                quoted = !quoted;
            }
        } else if (quoted || letters.find(c) == std::wstring_view::npos) {
            ++copied;
        } else {
            const std::size_t end = std::min(picture.find_first_not_of(c, i), picture.size());
            const std::wstring_view field = picture.substr(i, end - i);
            picture.remove_prefix(end);
            return field;
        }
    }
    picture = {};
    return {};
}

}  // namespace tarn
