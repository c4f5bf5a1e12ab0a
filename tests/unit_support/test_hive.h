// For unit tests only: while it lives, this process sees an empty key of its own in the place of
// HKEY_LOCAL_MACHINE, so that a test writes registry entries without touching those of the machine.
// The keys are volatile: what a killed test leaves behind does not last.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/handles.h"

namespace tarn {

class TestHive {
  public:
    TestHive() : path_(L"Software\\Tarn tests\\" + std::to_wstring(GetCurrentProcessId())) {
        UniqueRegistryKey top;
        EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, path_.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                                  KEY_ALL_ACCESS, nullptr, top.put(), nullptr),
                  ERROR_SUCCESS);
        EXPECT_EQ(RegOverridePredefKey(HKEY_LOCAL_MACHINE, top.get()), ERROR_SUCCESS);
    }
    TestHive(const TestHive&) = delete;
    TestHive& operator=(const TestHive&) = delete;
    ~TestHive() {
        // With what was allowed to us before, or the key could not be removed.
        for (const UniqueRegistryKey& key : locked_) SetRights(key, nullptr);
        locked_.clear();
        RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
        EXPECT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str()), ERROR_SUCCESS);
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

    /// Takes everybody's rights to the key away, its maker's too.
    void Lock(const std::wstring& key) {
        ACL nobody{};
        EXPECT_TRUE(InitializeAcl(&nobody, sizeof nobody, ACL_REVISION));
        locked_.push_back(Open(key));
        SetRights(locked_.back(), &nobody);
    }

  private:
    static UniqueRegistryKey Open(const std::wstring& name) {
        UniqueRegistryKey key;
        EXPECT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, name.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                                  KEY_ALL_ACCESS, nullptr, key.put(), nullptr),
                  ERROR_SUCCESS);
        return key;
    }

    /// Null allows everything to everybody.
    static void SetRights(const UniqueRegistryKey& key, ACL* rights) {
        SECURITY_DESCRIPTOR security{};
        EXPECT_TRUE(InitializeSecurityDescriptor(&security, SECURITY_DESCRIPTOR_REVISION));
        EXPECT_TRUE(SetSecurityDescriptorDacl(&security, TRUE, rights, FALSE));
        EXPECT_EQ(RegSetKeySecurity(key.get(), DACL_SECURITY_INFORMATION, &security),
                  ERROR_SUCCESS);
    }

    std::wstring path_;
    std::vector<UniqueRegistryKey> locked_;
};

}  // namespace tarn
