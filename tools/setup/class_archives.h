#pragma once

#include <string>
#include <string_view>

#include "tools/setup/package_content.h"
#include "tools/setup/product.h"

namespace tarn::tools {

/// What follows the text of "Fast Start" in the name of a class archive, with a wildcard for each
/// digit.
inline constexpr char kArchivePattern[] =
    "-????????"
    "-????????????????.jsa";

/// The path before that in the names of the archives that the launcher leaves, from a value of
/// "Fast Start": UTF-8, with variables of the environment. Empty for a value that is not an
/// absolute path, and for one with characters that could match other files.
std::string ArchivePrefixOf(std::wstring_view fastStart);

/// The same from the settings of a product: those beside the executable, or built into it.
std::string ArchivePrefixOf(const Product& product, const PackageContent& content);

}  // namespace tarn::tools
