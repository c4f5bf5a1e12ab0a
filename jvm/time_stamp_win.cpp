#include "jvm/time_stamp.h"

#include "base/text.h"
#include "base/windows.h"

namespace tarn {
namespace {

// Characters with the terminating zero. A longer text is no file name within the old path limit, so
// it is refused.
constexpr int kFormattedSize = 260;

// A shorter picture cannot fill the buffer.
constexpr std::size_t kHarmlessLength = 64;

using FormatFunction = int(WINAPI*)(LCID, DWORD, const SYSTEMTIME*, LPCWSTR, LPWSTR, int);

// One of the two formatting functions, and the letters of its pictures.
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

// Whether the formatted text fits the buffer. Measured in advance, field by field, because Wine
// overruns an internal buffer with a longer text.
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
    // The date pass formats the result of the time pass: docs/developer/compatibility.md.
    const std::wstring timed = Format({&GetTimeFormatW, L"hHmst"}, picture, time);
    std::wstring expanded(parts->before);
    expanded += Format({&GetDateFormatW, L"dMyg"}, timed, time);
    expanded += parts->after;
    return expanded;
}

}  // namespace tarn
