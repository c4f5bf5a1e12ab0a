#include "tools/java/module_name.h"

#include <gtest/gtest.h>

namespace tarn::tools {
namespace {

TEST(ModuleNameTest, IsDerivedFromTheFileNameAsInJava) {
    EXPECT_EQ(AutomaticModuleName("commons-text-1.10.0.jar"), "commons.text");
    EXPECT_EQ(AutomaticModuleName("guava-32.1.3-jre.jar"), "guava");
    EXPECT_EQ(AutomaticModuleName("a__b-7.jar"), "a.b");
    EXPECT_EQ(AutomaticModuleName("-x-2go-.JAR"), "x.2go");
    EXPECT_EQ(AutomaticModuleName("plain"), "plain");
    EXPECT_EQ(AutomaticModuleName(".jar"), "");
}

}  // namespace
}  // namespace tarn::tools
