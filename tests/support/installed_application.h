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

/// An application as a user has it on the disk: launcher.exe under the application's name, its
/// settings file beside it, and what else a test adds. It lives in a temporary folder of its own,
/// whose path holds a blank and letters outside ASCII, and goes with the object.
class InstalledApplication {
  public:
    explicit InstalledApplication(std::wstring_view name = L"sample");
    ~InstalledApplication();
    InstalledApplication(const InstalledApplication&) = delete;
    InstalledApplication& operator=(const InstalledApplication&) = delete;

    /// The application's folder, with a backslash at its end.
    const std::wstring& folder() const { return folder_; }
    /// A path below the folder.
    std::wstring Path(std::wstring_view relative) const { return folder_ + std::wstring(relative); }
    std::wstring Executable() const { return Path(name_ + L".exe"); }
    std::wstring SettingsFile() const { return Path(name_ + L".ini"); }
    /// What the launched processes have as APPDATA (not made before a test does so).
    std::wstring AppDataFolder() const { return root_ + L"appdata"; }

    /// Writes the settings file: as UTF-16, or bytes as they stand.
    void WriteSettings(const SettingsText& settings);
    void WriteSettings(std::wstring_view text);
    void WriteSettingsBytes(std::string_view bytes);

    /// Writes a file below the folder (its folders are made); its full path.
    std::wstring AddFile(std::wstring_view relative, std::string_view bytes = {});
    std::wstring AddFolder(std::wstring_view relative);

    /// Puts a variant of the scripted jvm.dll into `home\place`, by default `home\bin\server`;
    /// the full path of the home without a backslash at its end.
    std::wstring AddRuntime(std::wstring_view home = L"jre", const wchar_t* variant = kFullJvm,
                            std::wstring_view place = L"bin\\server");

    /// What the scripted jvm.dll is to do (UTF-8; tests/README.md tells the language).
    void WriteScript(std::string_view script);

    /// Settings that start `com.example.Main` on the runtime `jre` of this folder.
    SettingsText StandardSettings() const;

    /// The environment of the processes; a test may add to it.
    std::map<std::wstring, std::optional<std::wstring>> environment;
    /// Their working directory; the folder's parent unless a test says otherwise.
    std::wstring directory;

    /// Starts the executable: its quoted path, then a blank and the text as it stands.
    std::unique_ptr<LaunchedProcess> Launch(std::wstring_view argumentText = {}) const;
    /// Starts it with exactly this command line.
    std::unique_ptr<LaunchedProcess> LaunchWith(std::wstring_view commandLine) const;

    /// How it would be started with this command line, for a test that changes more than that.
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

/// Makes the folder and those above it.
void MakeFolders(const std::wstring& path);

/// Removes a folder with all that is in it.
void RemoveFolder(const std::wstring& path);

}  // namespace tarn::test
