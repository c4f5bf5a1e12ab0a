#pragma once

#include <gtest/gtest.h>

#include "base/windows.h"

namespace tarn {

/// Sets the access rights of an open key. Null grants full access to everyone.
inline void SetRights(HKEY key, ACL* rights) {
    SECURITY_DESCRIPTOR security{};
    EXPECT_TRUE(InitializeSecurityDescriptor(&security, SECURITY_DESCRIPTOR_REVISION));
    EXPECT_TRUE(SetSecurityDescriptorDacl(&security, TRUE, rights, FALSE));
    EXPECT_EQ(RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, &security), ERROR_SUCCESS);
}

/// Removes all access rights to an open key, including the owner's. Handles that are open keep
/// theirs.
inline void DenyAll(HKEY key) {
    ACL noRights{};
    EXPECT_TRUE(InitializeAcl(&noRights, sizeof noRights, ACL_REVISION));
    SetRights(key, &noRights);
}

/// Grants full access to everyone.
inline void GrantAll(HKEY key) {
    SetRights(key, nullptr);
}

}  // namespace tarn
