// For unit tests only: while the object lives, HKEY_LOCAL_MACHINE of this process is an empty key
// of the test's own, so that a test does not change the machine's registry. The keys are volatile
// and do not outlive the session when a test is killed.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/handles.h"
#include "tests/unit_support/key_rights.h"

namespace tarn {

class HiveFixture {
  public:
    HiveFixture() : path_(L"Software\\Tarn tests\\" + std::to_wstring(GetCurrentProcessId())) {
        UniqueRegistryKey top;
        EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, path_.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                                  KEY_ALL_ACCESS, nullptr, top.put(), nullptr),
                  ERROR_SUCCESS);
        EXPECT_EQ(RegOverridePredefKey(HKEY_LOCAL_MACHINE, top.get()), ERROR_SUCCESS);
    }
    HiveFixture(const HiveFixture&) = delete;
    HiveFixture& operator=(const HiveFixture&) = delete;
    ~HiveFixture() {
        // With the original access rights, because the key could not be removed otherwise.
        for (const UniqueRegistryKey& key : locked_) GrantAll(key.get());
        locked_.clear();
        RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
        EXPECT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str()), ERROR_SUCCESS);
    }

    /// Creates a key and its missing parents.
    void Make(const std::wstring& key) { Open(key); }

    /// Sets "JavaHome" of a key, which is created if it does not exist.
    void Set(const std::wstring& key, DWORD type, const void* data, std::size_t size) {
        EXPECT_EQ(RegSetValueExW(Open(key).get(), L"JavaHome", 0, type,
                                 static_cast<const BYTE*>(data), static_cast<DWORD>(size)),
                  ERROR_SUCCESS);
    }

    void SetText(const std::wstring& key, const std::wstring& text, DWORD type = REG_SZ) {
        Set(key, type, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    }

    /// Removes all access rights to the key, including the owner's.
    void Lock(const std::wstring& key) {
        locked_.push_back(Open(key));
        DenyAll(locked_.back().get());
    }

  private:
    static UniqueRegistryKey Open(const std::wstring& name) {
        UniqueRegistryKey key;
        EXPECT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, name.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                                  KEY_ALL_ACCESS, nullptr, key.put(), nullptr),
                  ERROR_SUCCESS);
        return key;
    }

    std::wstring path_;
    std::vector<UniqueRegistryKey> locked_;
};

}  // namespace tarn
