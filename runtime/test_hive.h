// For unit tests only: while it lives, this process sees an empty key of its own in the place of
// HKEY_LOCAL_MACHINE, so that a test writes registry entries without touching those of the machine.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "base/handles.h"

namespace tarn {

class TestHive {
  public:
    TestHive() : path_(L"Software\\Tarn tests\\" + std::to_wstring(GetCurrentProcessId())) {
        RegistryKey top;
        EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, path_.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                                  nullptr, top.put(), nullptr),
                  ERROR_SUCCESS);
        EXPECT_EQ(RegOverridePredefKey(HKEY_LOCAL_MACHINE, top.get()), ERROR_SUCCESS);
    }
    TestHive(const TestHive&) = delete;
    TestHive& operator=(const TestHive&) = delete;
    ~TestHive() {
        RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
        RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str());
    }

    /// Makes a key with those above it.
    void Make(const std::wstring& key) { Open(key); }

    /// Sets "JavaHome" of a key, which is made if need be.
    void Set(const std::wstring& key, DWORD type, const void* data, std::size_t size) {
        EXPECT_EQ(RegSetValueExW(Open(key).get(), L"JavaHome", 0, type,
                                 static_cast<const BYTE*>(data), static_cast<DWORD>(size)),
                  ERROR_SUCCESS);
    }

    void SetText(const std::wstring& key, const std::wstring& text, DWORD type = REG_SZ) {
        Set(key, type, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    }

  private:
    static RegistryKey Open(const std::wstring& name) {
        RegistryKey key;
        EXPECT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, name.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                                  nullptr, key.put(), nullptr),
                  ERROR_SUCCESS);
        return key;
    }

    std::wstring path_;
};

}  // namespace tarn
