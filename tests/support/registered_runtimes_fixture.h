#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/fake_jvm_fixture.h"
#include "tests/support/named_event.h"
#include "tests/support/registry_key.h"

namespace tarn::test {

inline constexpr wchar_t kJdkRoot[] = L"Software\\JavaSoft\\JDK";
inline constexpr wchar_t kJreRoot[] = L"Software\\JavaSoft\\JRE";
inline constexpr wchar_t kOldJdkRoot[] = L"Software\\JavaSoft\\Java Development Kit";
inline constexpr wchar_t kOldJreRoot[] = L"Software\\JavaSoft\\Java Runtime Environment";
inline constexpr wchar_t kJrockitJreRoot[] = L"Software\\JRockit\\Java Runtime Environment";
inline constexpr wchar_t kJrockitJdkRoot[] = L"Software\\JRockit\\Java Development Kit";
inline constexpr wchar_t kIbmRoot[] = L"Software\\IBM\\Java2 Runtime Environment";

/// Registry entries of Java runtimes while the object lives. A lock keeps other tests from seeing
/// or changing them. The machine must have no entries of its own, because the tests could not
/// predict the result.
class RegisteredRuntimes {
  public:
    RegisteredRuntimes();

    /// Registers a home, unchanged, under the name of a version.
    void Add(std::wstring_view root, std::wstring_view name, const std::wstring& home,
             RegistryView view = RegistryView::k64Bit);
    /// The same with a "JavaHome" of any type and any bytes.
    void AddRaw(std::wstring_view root, std::wstring_view name, DWORD type, const void* data,
                std::size_t size, RegistryView view = RegistryView::k64Bit);
    /// A version's key without a "JavaHome".
    void AddEmpty(std::wstring_view root, std::wstring_view name,
                  RegistryView view = RegistryView::k64Bit);

  private:
    SharedStateLock lock_;
    std::vector<std::unique_ptr<TemporaryKey>> keys_;
};

/// An application without "JRE Path" that accepts any version; each of its runtimes contains the
/// scripted jvm.dll.
class RegisteredRuntimesFixture : public FakeJvmFixture {
  protected:
    RegisteredRuntimesFixture();

    /// Creates a runtime in the folder `home` of the application and registers it.
    void Add(std::wstring_view root, std::wstring_view name, std::wstring_view home,
             std::wstring_view place = L"bin\\server", RegistryView view = RegistryView::k64Bit);

    /// Starts the application. Returns the path of its `jvm.dll` below the application's folder, or
    /// "nothing" when the dialog "JRE Not Found" appeared.
    std::string Chosen();

    RegisteredRuntimes registered;
};

}  // namespace tarn::test
