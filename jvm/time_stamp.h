#pragma once

#include <optional>
#include <string>
#include <string_view>

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

/// Takes the next field, a run of one and the same of the `letters`, off the picture, with all that
/// stands before it; empty, as the picture is then, when there is none. Adds to `copied` how many
/// characters stand before it in the formatted text: those that mean nothing, and what is in
/// single quotes (where two quotes are one).
std::wstring_view ConsumeField(std::wstring_view& picture, std::wstring_view letters,
                               std::size_t& copied);

}  // namespace tarn
