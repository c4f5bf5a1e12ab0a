#pragma once

#include <string>

#include "runtime/runtime_version.h"

namespace tarn {

/// Which text of the string table describes two bounds, and what fills its places.
struct VersionPhrase {
    unsigned textId = 0;
    std::wstring first;
    std::wstring second;
};

/// Chooses the text by which of the bounds say something.
VersionPhrase ChooseVersionPhrase(const RuntimeVersion& minimum, const RuntimeVersion& maximum);

/// The phrase that tells the user which versions will do, from the string table ("minimum version
/// 1.8", "latest version" when neither bound says anything).
std::wstring DescribeVersionBounds(const RuntimeVersion& minimum, const RuntimeVersion& maximum);

}  // namespace tarn
