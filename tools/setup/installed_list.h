#pragma once

#include <string>
#include <vector>

#include "tools/setup/package_content.h"
#include "tools/setup/product.h"
#include "tools/setup/setup_request.h"

namespace tarn::tools {

/// The names that setup itself needs in the installation folder.
inline constexpr char kUninstaller[] = "uninstall.exe";
inline constexpr char kInstalledList[] = "uninstall.lst";
inline constexpr char kOriginalSettings[] = "uninstall.ini";

/// The settings file beside the executable; empty when the settings are built in.
std::string SettingsFileOf(const Product& product, const PackageContent& content);

/// The list of everything that was installed, in the order of its removal, as lines of a letter, a
/// space and a text:
///   F file and D folder below the installation folder, with backslashes
///   S shortcut in the start menu and L shortcut on the desktop
///   A class archives of the launcher, whose names begin with this path (with variables)
///   K key, N value name and V data of a registry value, which is removed while it has that data
///   E registry key that is removed if it is empty
/// Upgrades and the uninstaller read it. UTF-8 with CR LF; the file is UTF-16.
std::string InstalledList(const SetupRequest& request, const Product& product,
                          const PackageContent& content, const std::vector<RegistryValue>& values);

/// Throws Failure when a file of the package has one of the names above.
void CheckReservedNames(const PackageContent& content);

}  // namespace tarn::tools
