#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "runtime/search_report.h"
#include "tools/explain/launch_report.h"

namespace tarn::tools {

/// How the launcher's search went, in the words of the report. `preferredVersions` are the
/// policy's.
std::vector<SourceLine> DescribeSearch(const SearchReport& search,
                                       const std::vector<std::wstring>& preferredVersions);

/// The sentence part for people that belongs to one of those words; the word itself when it has
/// none.
std::string_view SentenceFor(std::string_view word);

}  // namespace tarn::tools
