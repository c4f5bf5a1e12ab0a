#include "bench/registrations.h"

#include <stdexcept>
#include <utility>

#include "base/handles.h"
#include "bench/workspace.h"

namespace tarn::bench {

namespace fs = std::filesystem;

RegistrationLayout JavaSoftKits() {
    return {L"Software\\JavaSoft\\JDK", kNewestVersion, L"", L"JavaHome"};
}

Registrations::Registrations(const Workspace& workspace, RegistrationLayout layout, fs::path homes)
    : layout_(std::move(layout)),
      homes_(std::move(homes)),
      jvm_(workspace.tools / L"stamp_jvm.dll") {}

Registrations::~Registrations() {
    Shrink(0);
}

void Registrations::Want(int count) {
    Shrink(count);
    while (count_ < count) Register(++count_);
}

fs::path Registrations::HomeOf(int number) const {
    return homes_ / std::to_wstring(number);
}

std::wstring Registrations::KeyOf(int number) const {
    return layout_.root + L'\\' + layout_.version + std::to_wstring(number);
}

void Registrations::Shrink(int count) {
    while (count_ > count) RegDeleteTreeW(HKEY_LOCAL_MACHINE, KeyOf(count_--).c_str());
}

void Registrations::Register(int number) {
    const fs::path home = HomeOf(number);
    const fs::path library = home / L"bin" / L"server" / L"jvm.dll";
    if (!fs::exists(library)) {
        fs::create_directories(library.parent_path());
        fs::create_hard_link(jvm_, library);
    }
    const std::wstring path = KeyOf(number) + layout_.below;
    const std::wstring text = home.wstring();
    UniqueRegistryKey key;
    if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                        KEY_WRITE, nullptr, key.put(), nullptr) != ERROR_SUCCESS ||
        RegSetValueExW(key.get(), layout_.homeValue.c_str(), 0, REG_SZ,
                       reinterpret_cast<const BYTE*>(text.c_str()),
                       static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))) != ERROR_SUCCESS) {
        throw std::runtime_error("cannot register a runtime");
    }
}

}  // namespace tarn::bench
