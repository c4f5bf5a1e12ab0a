#include "tests/support/installed_application.h"

#include <gtest/gtest.h>

#include "tests/support/paths.h"
#include "tests/support/text.h"

namespace tarn::test {

namespace {

// Letters that western code pages contain, so that class paths below the folder reach the JVM
// unchanged.
std::wstring FreshRoot() {
    static int count = 0;
    return TemporaryFolder() + L"tarn t\u00E9st " + std::to_wstring(GetCurrentProcessId()) + L'-' +
           std::to_wstring(++count) + L'\\';
}

void Copy(const std::wstring& from, const std::wstring& to) {
    const BOOL ok = CopyFileW(from.c_str(), to.c_str(), FALSE);
    ASSERT_TRUE(ok) << "cannot copy " << ToUtf8(from) << " to " << ToUtf8(to);
}

}  // namespace

void CreateFolders(const std::wstring& path) {
    for (std::size_t at = path.find(L'\\', 3); at != std::wstring::npos;
         at = path.find(L'\\', at + 1)) {
        CreateDirectoryW(path.substr(0, at).c_str(), nullptr);
    }
    CreateDirectoryW(path.c_str(), nullptr);
}

void RemoveFolder(const std::wstring& path) {
    WIN32_FIND_DATAW found{};
    {
        const UniqueFindHandle search(FindFirstFileW((path + L"\\*").c_str(), &found));
        for (BOOL more = search ? TRUE : FALSE; more; more = FindNextFileW(search.get(), &found)) {
            const std::wstring name = found.cFileName;
            if (name == L"." || name == L"..") continue;
            const std::wstring child = path + L'\\' + name;
            if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
                RemoveFolder(child);
            } else {
                DeleteFileW(child.c_str());
            }
        }
    }
    RemoveDirectoryW(path.c_str());
}

InstalledApplication::InstalledApplication(std::wstring_view name)
    : root_(FreshRoot()), folder_(root_ + L"My \u00C4pp\\"), name_(name) {
    CreateFolders(folder_);
    Copy(GetPaths().launcher, Executable());
    directory = root_;
    environment[L"APPDATA"] = AppDataFolder();
    environment[L"FAKE_JVM_LOG"] = LogFile();
    environment[L"FAKE_JVM_SCRIPT"] = root_ + L"jvm.script";
}

InstalledApplication::~InstalledApplication() {
    const std::wstring path = root_.substr(0, root_.size() - 1);
    // The files of a process that has just ended remain open for a moment.
    WaitUntil(
        [&] {
            RemoveFolder(path);
            return GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES;
        },
        std::chrono::seconds(5));
}

void InstalledApplication::WriteSettings(const SettingsText& settings) {
    WriteSettings(settings.Text());
}

void InstalledApplication::WriteSettings(std::wstring_view text) {
    WriteSettingsBytes(Utf16File(text));
}

void InstalledApplication::WriteSettingsBytes(std::string_view bytes) {
    WriteFileBytes(SettingsFile(), bytes);
}

std::wstring InstalledApplication::AddFile(std::wstring_view relative, std::string_view bytes) {
    const std::wstring path = Path(relative);
    CreateFolders(path.substr(0, path.rfind(L'\\')));
    WriteFileBytes(path, bytes);
    return path;
}

std::wstring InstalledApplication::AddFolder(std::wstring_view relative) {
    CreateFolders(Path(relative));
    return Path(relative);
}

std::wstring InstalledApplication::AddRuntime(std::wstring_view home, const wchar_t* variant,
                                              std::wstring_view place) {
    const std::wstring folder = Path(home) + L'\\' + std::wstring(place);
    CreateFolders(folder);
    Copy(GetPaths().fakeJvms + L'\\' + variant + L"\\jvm.dll", folder + L"\\jvm.dll");
    return Path(home);
}

void InstalledApplication::WriteScript(std::string_view script) {
    WriteFileBytes(root_ + L"jvm.script", script);
}

SettingsText InstalledApplication::StandardSettings() const {
    SettingsText settings;
    settings.Runtime(L"Main Class", L"com.example.Main");
    settings.Runtime(L"JRE Path", Path(L"jre"));
    settings.Set(L"Class Path", L"Class Path", L"C:\\app.jar");
    return settings;
}

std::unique_ptr<LaunchedProcess> InstalledApplication::Launch(std::wstring_view text) const {
    std::wstring commandLine = L'"' + Executable() + L'"';
    if (!text.empty()) {
        commandLine += L' ';
        commandLine += text;
    }
    return LaunchWith(commandLine);
}

std::unique_ptr<LaunchedProcess> InstalledApplication::LaunchWith(
    std::wstring_view commandLine) const {
    return std::make_unique<LaunchedProcess>(StartWith(commandLine));
}

Start InstalledApplication::StartWith(std::wstring_view commandLine) const {
    Start start;
    start.program = Executable();
    start.commandLine = commandLine;
    start.directory = directory;
    start.environment = environment;
    start.desktop = desktop;
    start.outputFile = OutputFile();
    start.errorFile = ErrorFile();
    return start;
}

}  // namespace tarn::test
