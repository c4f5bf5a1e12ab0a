#pragma once

#include <string_view>

namespace tarn::tools {

/// The script for makensis that is the same for every product, with @WORDS@ in place of what
/// differs: first the settings, the pages and the functions that setup and the uninstaller share,
/// then the functions that replace files, then what setup and the uninstaller do.
std::string_view NsisHead();
std::string_view NsisReplacement();
std::string_view NsisSections();

}  // namespace tarn::tools
