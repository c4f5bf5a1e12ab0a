#include "tools/java/java_version.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/common/folder_fixture.h"

namespace tarn::tools {
namespace {

using JavaVersionOfARuntime = FolderTest;

TEST_F(JavaVersionOfARuntime, IsReadFromItsHome) {
    EXPECT_EQ(ReadJavaVersion(folder_), "");
    Put("release", "IMPLEMENTOR=\"x\"\nJAVA_VERSION=\"21.0.8\"\nOS_NAME=\"Windows\"\n");
    EXPECT_EQ(ReadJavaVersion(folder_), "21.0.8");
    Put("release", "IMPLEMENTOR=\"x\"\r\nJAVA_VERSION=\"17.0.9\"\r\nOS_NAME=\"y\"\r\n");
    EXPECT_EQ(ReadJavaVersion(folder_), "17.0.9");
    Put("release", "JAVA_VERSION=1.8.0_231");
    EXPECT_EQ(ReadJavaVersion(folder_), "1.8.0_231");
    Put("release", "IMPLEMENTOR=\"x\"\n\r\nNOT_JAVA_VERSION=1\n");
    EXPECT_EQ(ReadJavaVersion(folder_), "");
}

TEST_F(JavaVersionOfARuntime, ComesWithTheListOfItsModules) {
    EXPECT_THAT(ReadJavaModules(folder_), testing::IsEmpty());
    Put("release", "JAVA_VERSION=\"21\"\nMODULES=\"java.base  javafx.graphics\"\n");
    EXPECT_THAT(ReadJavaModules(folder_), testing::ElementsAre("java.base", "javafx.graphics"));
}

TEST(JavaFeatureTest, IsTheNumberThatCounts) {
    EXPECT_EQ(JavaFeatureOf("1.8.0_231"), 8);
    EXPECT_EQ(JavaFeatureOf("17.0.9"), 17);
    EXPECT_EQ(JavaFeatureOf("25"), 25);
    EXPECT_EQ(JavaFeatureOf("any"), 0);
    EXPECT_EQ(JavaFeatureOf(""), 0);
}

TEST(JavaFeatureTest, IsWrittenWithAOneUpToEight) {
    EXPECT_EQ(JavaVersionOfFeature(8), "1.8");
    EXPECT_EQ(JavaVersionOfFeature(9), "9");
}

TEST(JavaFeatureTest, IsInTheHeaderOfAClassFile) {
    const auto feature = [](char major) {
        std::string head("\xCA\xFE\xBA\xBE\0\0\0\0", 8);
        head[7] = major;
        return JavaFeatureOfClass(AsBytes(head));
    };
    EXPECT_EQ(feature(45), 1);
    EXPECT_EQ(feature(52), 8);
    EXPECT_EQ(feature(53), 9);
    EXPECT_EQ(feature(69), 25);
    EXPECT_EQ(feature(3), 0);
    EXPECT_EQ(JavaFeatureOfClass(AsBytes("text and more")), 0);
    EXPECT_EQ(JavaFeatureOfClass({}), 0);
}

}  // namespace
}  // namespace tarn::tools
