#include "runtime/registry_reader.h"

#include <cstddef>
#include <vector>

#include "runtime/jvm_library.h"

namespace tarn {

namespace {

/// Returns the text of a value of any type; empty when it cannot be read.
std::wstring ReadText(HKEY key, const wchar_t* name) {
    DWORD size = 0;
    if (RegQueryValueExW(key, name, nullptr, nullptr, nullptr, &size) != ERROR_SUCCESS) return {};
    std::vector<std::byte> data(size);
    if (RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(data.data()),
                         &size) != ERROR_SUCCESS) {
        return {};
    }
    // The value may have become shorter between the two calls.
    data.resize(size);
    return TextOfValue(data);
}

}  // namespace

bool RegistryReader::OpenRoot(const wchar_t* key) {
    next_ = 0;
    return RegOpenKeyExW(HKEY_LOCAL_MACHINE, key, 0, access_, root_.put()) == ERROR_SUCCESS;
}

bool RegistryReader::NextSubkey(std::wstring& name) {
    // Names of keys have 255 characters at most.
    wchar_t buffer[520];
    DWORD length = static_cast<DWORD>(std::size(buffer));
    if (RegEnumKeyExW(root_.get(), next_, buffer, &length, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
        return false;
    }
    ++next_;
    name.assign(buffer, length);
    return true;
}

HomeValue RegistryReader::ReadHome(const std::wstring& name) {
    UniqueRegistryKey key;
    if (RegOpenKeyExW(root_.get(), name.c_str(), 0, access_, key.put()) != ERROR_SUCCESS) return {};
    return {true, ReadText(key.get(), L"JavaHome")};
}

bool RegistryReader::FindJvm(const std::wstring& home, JvmType type, bool& server) {
    return !SelectJvmLibrary(home, type, server).empty();
}

}  // namespace tarn
