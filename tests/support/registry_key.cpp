#include "tests/support/registry_key.h"

#include <gtest/gtest.h>

#include "tests/support/text.h"
#include "tests/unit_support/key_rights.h"

namespace tarn::test {

namespace {

bool KeyExists(HKEY root, const std::wstring& path, REGSAM view) {
    UniqueRegistryKey key;
    return RegOpenKeyExW(root, path.c_str(), 0, KEY_READ | view, key.put()) == ERROR_SUCCESS;
}

// RegDeleteTreeW cannot select a registry view.
void DeleteTree(HKEY root, const std::wstring& path, REGSAM view) {
    {
        UniqueRegistryKey key;
        if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ | view, key.put()) != ERROR_SUCCESS) {
            return;
        }
        // The name of a key has at most 255 characters.
        wchar_t name[256];
        DWORD length = 256;
        while (RegEnumKeyExW(key.get(), 0, name, &length, nullptr, nullptr, nullptr, nullptr) ==
               ERROR_SUCCESS) {
            DeleteTree(root, path + L'\\' + name, view);
            length = 256;
        }
    }
    RegDeleteKeyExW(root, path.c_str(), view, 0);
}

}  // namespace

TemporaryKey::TemporaryKey(HKEY root, std::wstring path, RegistryView view)
    : root_(root),
      path_(std::move(path)),
      view_(view == RegistryView::k64Bit ? REGSAM{KEY_WOW64_64KEY} : REGSAM{KEY_WOW64_32KEY}) {
    while (!path_.empty() && path_.back() == L'\\') path_.pop_back();
    for (std::size_t end = path_.find(L'\\');; end = path_.find(L'\\', end + 1)) {
        const std::wstring part = path_.substr(0, end);
        if (!KeyExists(root_, part, view_)) {
            topmostMade_ = part;
            break;
        }
        if (end == std::wstring::npos) break;
    }
    UniqueRegistryKey key;
    // Volatile, so that keys of a killed test do not outlive the session.
    EXPECT_EQ(RegCreateKeyExW(root_, path_.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                              KEY_READ | KEY_WRITE | view_, nullptr, key.put(), nullptr),
              ERROR_SUCCESS)
        << ToUtf8(path_);
}

TemporaryKey::~TemporaryKey() {
    // The key could not be removed otherwise.
    if (locked_) GrantAll(locked_.get());
    if (!topmostMade_.empty()) DeleteTree(root_, topmostMade_, view_);
}

void TemporaryKey::Lock() {
    ASSERT_EQ(RegOpenKeyExW(root_, path_.c_str(), 0, KEY_ALL_ACCESS | view_, locked_.put()),
              ERROR_SUCCESS);
    DenyAll(locked_.get());
}

void TemporaryKey::Set(const std::wstring& name, const std::wstring& value) const {
    Set(name, REG_SZ, value.c_str(), (value.size() + 1) * sizeof(wchar_t));
}

void TemporaryKey::Set(const std::wstring& name, DWORD type, const void* data,
                       std::size_t size) const {
    UniqueRegistryKey key;
    ASSERT_EQ(RegOpenKeyExW(root_, path_.c_str(), 0, KEY_WRITE | view_, key.put()), ERROR_SUCCESS);
    EXPECT_EQ(RegSetValueExW(key.get(), name.c_str(), 0, type, static_cast<const BYTE*>(data),
                             static_cast<DWORD>(size)),
              ERROR_SUCCESS);
}

}  // namespace tarn::test
