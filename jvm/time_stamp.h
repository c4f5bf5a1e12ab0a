#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// A file name taken apart at its time-stamp picture.
struct TimeStampName {
    std::wstring_view before;
    /// What stands between the first and the last "%", which for a single one is nothing.
    std::wstring_view picture;
    std::wstring_view after;
};

/// The parts of `name`; none when it has no "%" and so stays as it is. Views of `name`.
std::optional<TimeStampName> SplitTimeStamp(std::wstring_view name);

/// The picture with every "L" replaced by the milliseconds of a second (0 to 999), in decimal
/// without leading zeros. Windows' own pictures have no milliseconds.
std::wstring WithMilliseconds(std::wstring_view picture, unsigned milliseconds);

/// What a picture's formatted text is made of, in no order: enough to tell its length.
struct PictureParts {
    /// How many characters are copied: those that mean nothing, and what stands in single quotes
    /// (where two quotes are one).
    std::size_t copied = 0;
    /// The runs of one and the same letter that are replaced. Views of the picture.
    std::vector<std::wstring_view> fields;
};

/// The parts of a picture whose replaced letters are `letters`.
PictureParts SplitPicture(std::wstring_view picture, std::wstring_view letters);

}  // namespace tarn
