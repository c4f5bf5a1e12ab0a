#pragma once

#include <string>

#include "runtime/runtime_version.h"

namespace tarn {

/// The text that describes two bounds, with its arguments.
struct VersionPhrase {
    /// Id in the string table.
    unsigned textId = 0;
    std::wstring first;
    std::wstring second;
};

/// Chooses the text that describes the bounds, by which of them are blank.
VersionPhrase ChooseVersionPhrase(const RuntimeVersion& minimum, const RuntimeVersion& maximum);

/// Returns the phrase that tells the user which versions are accepted ("minimum version 1.8"), from
/// the string table.
std::wstring DescribeVersionBounds(const RuntimeVersion& minimum, const RuntimeVersion& maximum);

}  // namespace tarn
