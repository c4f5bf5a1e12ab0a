#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "runtime/search_report.h"
#include "tools/explain/launch_report.h"

namespace tarn::tools {

/// The launcher's search in the keywords of the report. `preferredVersions` are the policy's.
std::vector<SourceLine> DescribeSearch(const SearchReport& search,
                                       const std::vector<std::wstring>& preferredVersions);

/// The readable text for a keyword; the keyword itself when there is none.
std::string_view SentenceFor(std::string_view word);

/// The readable text for the verdict on a source, in the words that suit the source.
std::string_view VerdictSentence(const SourceLine& source);

}  // namespace tarn::tools
