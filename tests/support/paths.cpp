#include "tests/support/paths.h"

#include "base/windows.h"

namespace tarn::test {

namespace {

std::wstring ProgramFolder() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.rfind(L'\\') + 1);
}

std::wstring FromEnvironment(const wchar_t* name, const std::wstring& otherwise) {
    std::wstring value(32768, L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    const std::wstring& chosen = value.empty() ? otherwise : value;
    std::wstring full(32768, L'\0');
    full.resize(
        GetFullPathNameW(chosen.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

}  // namespace

const Paths& GetPaths() {
    static const Paths paths = [] {
        const std::wstring folder = ProgramFolder();
        Paths found;
        found.launcher = FromEnvironment(L"TARN_LAUNCHER", folder + L"..\\launcher.exe");
        found.companion = FromEnvironment(L"TARN_COMPANION", folder + L"..\\tarn.exe");
        found.fakeJvms = FromEnvironment(L"TARN_FAKE_JVM_DIR", folder + L"fake_jvm");
        found.fakeSplashes = FromEnvironment(L"TARN_FAKE_SPLASH_DIR", folder + L"fake_splash");
        found.importHook =
            FromEnvironment(L"TARN_IMPORT_HOOK", folder + L"import_hook\\import_hook.dll");
        found.callOutcomes = FromEnvironment(L"TARN_CALL_OUTCOMES", folder + L"call_outcomes");
        found.pictures = FromEnvironment(L"TARN_TEST_PICTURES", folder + L"pictures");
        found.programs = FromEnvironment(L"TARN_TEST_PROGRAMS", folder + L"programs");
        found.runtimes = FromEnvironment(L"TARN_RUNTIMES", folder + L"runtimes");
        found.applications = FromEnvironment(L"TARN_APPLICATIONS", folder + L"applications");
        found.javaFixtures = FromEnvironment(L"TARN_JAVA_FIXTURES", folder + L"fixtures.jar");
        return found;
    }();
    return paths;
}

std::wstring TemporaryFolder() {
    std::wstring path(MAX_PATH + 1, L'\0');
    path.resize(GetTempPathW(static_cast<DWORD>(path.size()), path.data()));
    std::wstring full(32768, L'\0');
    full.resize(GetLongPathNameW(path.c_str(), full.data(), static_cast<DWORD>(full.size())));
    return full.empty() ? path : full;
}

bool IsWine() {
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

}  // namespace tarn::test
