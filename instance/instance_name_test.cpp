#include "instance/instance_name.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

TEST(InstanceNameTest, IsThePathWithUnderscoresForBackslashes) {
    EXPECT_EQ(InstanceName(L"C:\\Apps\\sample.exe"), L"C:_Apps_sample.exe");
}

TEST(InstanceNameTest, KeepsEverythingElse) {
    EXPECT_EQ(InstanceName(L"\\\\server\\share\\My App\\a_b/C.exe"),
              L"__server_share_My App_a_b/C.exe");
    EXPECT_EQ(InstanceName(L"sample.exe"), L"sample.exe");
}

TEST(InstanceNameTest, TheReadyEventHasAnEndingOfItsOwn) {
    EXPECT_EQ(ReadyEventName(L"C:_Apps_sample.exe"), L"C:_Apps_sample.exe_upr_evt");
}

}  // namespace
}  // namespace tarn
