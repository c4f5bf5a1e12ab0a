#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/registered_runtimes_fixture.h"

namespace tarn::test {

/// The value of an installer's key that contains the runtime's home.
inline constexpr wchar_t kMsiHome[] = L"Path";
/// The same in the keys of makers that state the version in a value.
inline constexpr wchar_t kNamedHome[] = L"InstallationPath";

/// An application that names its further sources. The folders and variables that the search reads
/// are the test's own.
class FurtherSourcesFixture : public RegisteredRuntimesFixture {
  protected:
    FurtherSourcesFixture() {
        Name(L"vendors");
        app.environment[L"LOCALAPPDATA"] = app.Path(L"local");
        app.environment[L"JAVA_HOME"] = std::nullopt;
        app.environment[L"Path"] = L"C:\\windows\\system32";
    }

    void Name(std::wstring_view words) { settings.Runtime(L"Further Sources", words); }

    TemporaryKey& AddKey(std::wstring_view key, HKEY hive = HKEY_LOCAL_MACHINE) {
        keys_.push_back(std::make_unique<TemporaryKey>(hive, L"SOFTWARE\\" + std::wstring(key)));
        return *keys_.back();
    }

    /// Creates a runtime in the folder `home` of the application and registers it as an MSI does:
    /// `key` ends with the version.
    void AddMsi(std::wstring_view key, std::wstring_view home, HKEY hive = HKEY_LOCAL_MACHINE,
                const wchar_t* jvm = L"\\hotspot\\MSI") {
        app.AddRuntime(home);
        AddKey(std::wstring(key) + jvm, hive).Set(kMsiHome, app.Path(home) + L'\\');
    }

    void AddRelease(std::wstring_view home, const std::string& version) {
        app.AddFile(std::wstring(home) + L"\\release",
                    "IMPLEMENTOR=\"Test\"\nJAVA_VERSION=\"" + version + "\"\n");
    }

    static std::string In(const std::string& home) { return home + "\\bin\\server\\jvm.dll"; }

  private:
    std::vector<std::unique_ptr<TemporaryKey>> keys_;
};

}  // namespace tarn::test
