#include "tests/support/registered_runtimes_fixture.h"

#include "base/handles.h"

namespace tarn::test {

namespace {

std::size_t SubkeysOf(const wchar_t* root, REGSAM view) {
    UniqueRegistryKey key;
    DWORD count = 0;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, root, 0, KEY_READ | view, key.put()) == ERROR_SUCCESS) {
        RegQueryInfoKeyW(key.get(), nullptr, nullptr, nullptr, &count, nullptr, nullptr, nullptr,
                         nullptr, nullptr, nullptr, nullptr);
    }
    return count;
}

std::wstring KeyOf(std::wstring_view root, std::wstring_view name) {
    std::wstring key(root);
    key += L'\\';
    key += name;
    return key;
}

}  // namespace

RegisteredRuntimes::RegisteredRuntimes() {
    for (const wchar_t* root : {kJdkRoot, kJreRoot, kOldJdkRoot, kOldJreRoot, kJrockitJreRoot,
                                kJrockitJdkRoot, kIbmRoot}) {
        for (const REGSAM view : {REGSAM{KEY_WOW64_64KEY}, REGSAM{KEY_WOW64_32KEY}}) {
            EXPECT_EQ(SubkeysOf(root, view), 0U)
                << "this test needs a machine without registered runtimes: " << ToUtf8(root);
        }
    }
}

void RegisteredRuntimes::Add(std::wstring_view root, std::wstring_view name,
                             const std::wstring& home, RegistryView view) {
    AddRaw(root, name, REG_SZ, home.c_str(), (home.size() + 1) * sizeof(wchar_t), view);
}

void RegisteredRuntimes::AddRaw(std::wstring_view root, std::wstring_view name, DWORD type,
                                const void* data, std::size_t size, RegistryView view) {
    AddEmpty(root, name, view);
    keys_.back()->Set(L"JavaHome", type, data, size);
}

void RegisteredRuntimes::AddEmpty(std::wstring_view root, std::wstring_view name,
                                  RegistryView view) {
    keys_.push_back(std::make_unique<TemporaryKey>(HKEY_LOCAL_MACHINE, KeyOf(root, name), view));
}

RegisteredRuntimesFixture::RegisteredRuntimesFixture() {
    settings.Remove(L"Java Runtime Environment", L"JRE Path");
    settings.Runtime(L"Minimum Version", L"any").Runtime(L"Maximum Version", L"any");
    // Where the policy allows an IBM runtime, the Java thread does not end.
    app.WriteScript("main = exit 0");
}

void RegisteredRuntimesFixture::Add(std::wstring_view root, std::wstring_view name,
                                    std::wstring_view home, std::wstring_view place,
                                    RegistryView view) {
    app.AddRuntime(home, kFullJvm, place);
    registered.Add(root, name, app.Path(home), view);
}

std::string RegisteredRuntimesFixture::Chosen() {
    DeleteFileW(app.LogFile().c_str());
    const auto process = Start();
    HWND dialog = nullptr;
    WaitUntil([&] {
        for (HWND each : WindowsOf(process->id(), L"#32770")) {
            if (IsWindowVisible(each)) dialog = each;
        }
        return dialog != nullptr || process->HasEnded();
    });
    if (dialog != nullptr) {
        EXPECT_EQ(WindowText(dialog), L"JRE Not Found");
        PressButton(dialog, IDCANCEL);
        EXPECT_EQ(process->ExitCode(), -1);
        return "nothing";
    }
    EXPECT_EQ(process->ExitCode(), 0);
    const std::string path = app.Log().After("environment TARN_JVM_PATH=");
    // The log contains the path as a quoted text.
    const std::string quotedFolder = TextInLog(app.folder());
    const std::string folder = quotedFolder.substr(0, quotedFolder.size() - 1);
    std::string below = path.starts_with(folder) ? path.substr(folder.size()) : path;
    if (below.starts_with('"')) below.erase(0, 1);
    if (below.ends_with('"')) below.pop_back();
    // Backslashes are doubled.
    for (std::size_t at = below.find("\\\\"); at != std::string::npos;
         at = below.find("\\\\", at + 1)) {
        below.erase(at, 1);
    }
    return below;
}

}  // namespace tarn::test
