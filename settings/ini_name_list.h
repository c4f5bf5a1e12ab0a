#pragma once

#include <string_view>

namespace tarn {

/// In how many places of `names`, the section or key names of a settings file as Windows lists
/// them, `name` may stand: 0, 1, or 2 for more. Errs to one side only, so that 0 is certain: a name
/// inside another counts, letter case does not, and an empty list, which may be one that could not
/// be read, or one with anything but plain ASCII gives 2.
int CountPossibleMatches(std::wstring_view names, std::wstring_view name);

}  // namespace tarn
