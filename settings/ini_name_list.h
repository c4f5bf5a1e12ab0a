#pragma once

#include <string_view>

namespace tarn {

/// Counts the positions in `names`, a list of section or key names as the profile functions return
/// it, at which `name` may occur: 0, 1, or 2 for more. Never undercounts: 0 means certainly absent.
/// Names that contain `name` are counted, the comparison ignores case, and a list that is empty
/// (perhaps because it could not be read) or not plain printable ASCII returns 2.
int CountPossibleMatches(std::wstring_view names, std::wstring_view name);

}  // namespace tarn
