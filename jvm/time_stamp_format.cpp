#include "jvm/time_stamp_format.h"

#include "base/text.h"
#include "jvm/time_stamp.h"

namespace tarn {
namespace {

// What a part of a file name may come to, its end included: a longer name is none that the old
// path limit allows, so a picture that does not fit is refused instead of followed.
constexpr int kFormattedSize = 260;

// Shorter pictures cannot come near the buffer's size.
constexpr std::size_t kHarmlessLength = 64;

using FormatFunction = int(WINAPI*)(LCID, DWORD, const SYSTEMTIME*, LPCWSTR, LPWSTR, int);

/// One of the two formatting calls, and the letters that it replaces.
struct Formatter {
    FormatFunction format;
    std::wstring_view letters;
};

std::wstring FormatPicture(const Formatter& formatter, const std::wstring& picture,
                           const SYSTEMTIME& time) {
    wchar_t text[kFormattedSize];
    const int size =
        formatter.format(LOCALE_USER_DEFAULT, 0, &time, picture.c_str(), text, kFormattedSize);
    return size > 0 ? text : std::wstring();
}

/// Whether the formatted text fits the buffer. Asked beforehand, field by field, because Wine's
/// formatting overruns a buffer of its own with a longer text instead of refusing it.
bool Fits(const Formatter& formatter, const std::wstring& picture, const SYSTEMTIME& time) {
    if (picture.size() <= kHarmlessLength) return true;
    std::wstring_view rest = picture;
    for (std::size_t length = 0;;) {
        const std::wstring_view field = ConsumeField(rest, formatter.letters, length);
        if (length >= kFormattedSize) return false;
        if (field.empty()) return true;
        length += FormatPicture(formatter, std::wstring(field), time).size();
    }
}

std::wstring Format(const Formatter& formatter, const std::wstring& picture,
                    const SYSTEMTIME& time) {
    return Fits(formatter, picture, time) ? FormatPicture(formatter, picture, time)
                                          : std::wstring();
}

}  // namespace

std::wstring ExpandTimeStamp(const std::wstring& name, const SYSTEMTIME& time) {
    const auto parts = SplitTimeStamp(name);
    if (!parts) return name;
    const std::wstring picture = WithMilliseconds(parts->picture, time.wMilliseconds);
    const std::wstring timed = Format({&GetTimeFormatW, L"hHmst"}, picture, time);
    return Concat({parts->before, Format({&GetDateFormatW, L"dMyg"}, timed, time), parts->after});
}

}  // namespace tarn
