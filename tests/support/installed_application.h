#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "tests/support/fake_jvm_log.h"
#include "tests/support/launched_process.h"
#include "tests/support/settings_text.h"

namespace tarn::test {

/// The folders of the scripted jvm.dll's variants.
inline constexpr wchar_t kFullJvm[] = L"full";
inline constexpr wchar_t kJvmWithoutBootLoader[] = L"without_boot_loader";
inline constexpr wchar_t kJvmWithoutCreate[] = L"without_create";
inline constexpr wchar_t kJvmWithoutDefaults[] = L"without_defaults";

/// An installed application: launcher.exe under the application's name, its settings file beside
/// it, and whatever a test adds. It is in a temporary folder of its own, whose path contains a
/// space and letters outside ASCII; the destructor removes the folder.
class InstalledApplication {
  public:
    explicit InstalledApplication(std::wstring_view name = L"sample");
    ~InstalledApplication();
    InstalledApplication(const InstalledApplication&) = delete;
    InstalledApplication& operator=(const InstalledApplication&) = delete;

    /// The application's folder, with a trailing backslash.
    const std::wstring& folder() const { return folder_; }
    /// A path below the folder.
    std::wstring Path(std::wstring_view relative) const { return folder_ + std::wstring(relative); }
    std::wstring Executable() const { return Path(name_ + L".exe"); }
    std::wstring SettingsFile() const { return Path(name_ + L".ini"); }
    /// The APPDATA of the launched processes. A test creates the folder when it needs it.
    std::wstring AppDataFolder() const { return root_ + L"appdata"; }

    /// Writes the settings file, as UTF-16 or as the given bytes.
    void WriteSettings(const SettingsText& settings);
    void WriteSettings(std::wstring_view text);
    void WriteSettingsBytes(std::string_view bytes);

    /// Writes a file below the folder and creates its folders. Returns its full path.
    std::wstring AddFile(std::wstring_view relative, std::string_view bytes = {});
    std::wstring AddFolder(std::wstring_view relative);

    /// Copies a variant of the scripted jvm.dll to `home\place`, by default `home\bin\server`.
    /// Returns the full path of the home without a trailing backslash.
    std::wstring AddRuntime(std::wstring_view home = L"jre", const wchar_t* variant = kFullJvm,
                            std::wstring_view place = L"bin\\server");

    /// Writes the script of the scripted jvm.dll (UTF-8; see tests/README.md for its language).
    void WriteScript(std::string_view script);

    /// Settings that run `com.example.Main` on the runtime `jre` of this folder.
    SettingsText StandardSettings() const;

    /// The environment of the processes; a test may change it.
    std::map<std::wstring, std::optional<std::wstring>> environment;
    /// Their working directory; by default the parent of the folder.
    std::wstring directory;
    /// WINDOWSTATION\DESKTOP of the processes; by default those of the test.
    std::wstring desktop;

    /// Starts the executable: its quoted path, a space, and the text unchanged.
    std::unique_ptr<LaunchedProcess> Launch(std::wstring_view argumentText = {}) const;
    /// Starts the executable with exactly this command line.
    std::unique_ptr<LaunchedProcess> LaunchWith(std::wstring_view commandLine) const;

    /// The start options for this command line, for tests that change other options, too.
    Start StartWith(std::wstring_view commandLine) const;

    FakeJvmLog Log() const { return FakeJvmLog(LogFile()); }
    std::wstring LogFile() const { return root_ + L"jvm.log"; }
    std::wstring OutputFile() const { return root_ + L"stdout.txt"; }
    std::wstring ErrorFile() const { return root_ + L"stderr.txt"; }

  private:
    std::wstring root_;
    std::wstring folder_;
    std::wstring name_;
};

/// Creates the folder and its missing parents.
void CreateFolders(const std::wstring& path);

/// Removes a folder and its contents.
void RemoveFolder(const std::wstring& path);

}  // namespace tarn::test
