#pragma once

#include <string>
#include <string_view>

#include "tools/setup/association.h"

namespace tarn::tools {

/// The variable of wixl's preprocessor that must be defined as "$".
inline constexpr char kDollarVariable[] = "dollar";

/// A text in a source for `wixl`: no part of it is taken for a variable of its preprocessor.
std::string WixText(std::string_view text);

/// A text in a field that Windows Installer formats: brackets and braces are taken literally.
std::string FormattedText(std::string_view text);

/// The data of a registry value in such a field: `kInstallFolderMark` becomes the folder's
/// property, which ends in a backslash.
std::string FormattedData(const RegistryValue& value);

}  // namespace tarn::tools
