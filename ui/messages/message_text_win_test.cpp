#include "ui/messages/message_text.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

TEST(MessageTextTest, ContainsTheExactTexts) {
    EXPECT_EQ(LoadMessageText(202), L"Windows exception: %s (errno = %d).\n");
    EXPECT_EQ(LoadMessageText(203), L"JNI exception: %s\nReason: %s.\n");
    EXPECT_EQ(LoadMessageText(204), L"COM error: %s (errno = %d).\n");
    EXPECT_EQ(LoadMessageText(205), L"JNI exception: %s.\n");
    EXPECT_EQ(LoadMessageText(206),
              L"The Java Runtime Environment (JRE) was not found. Please  download and install a "
              L"JRE with a server JVM (%s) from:");
    EXPECT_EQ(LoadMessageText(207),
              L"The Java Runtime Environment (JRE) was not found. Please  download and install a "
              L"JRE (%s) from:");
    EXPECT_EQ(LoadMessageText(208), L"failed to get the module path");
    EXPECT_EQ(LoadMessageText(209), L"Java Class Path was not specified in INI file.");
    EXPECT_EQ(LoadMessageText(210), L"Main class was not specified in INI file.");
    EXPECT_EQ(LoadMessageText(211), L"Failed to load Main Class: %s.\n");
    EXPECT_EQ(LoadMessageText(212), L"cannot find CreateJavaVM JNI");
    EXPECT_EQ(LoadMessageText(213), L"failed to create the Java VM");
    EXPECT_EQ(LoadMessageText(214), L"Browse for JRE folder");
    EXPECT_EQ(LoadMessageText(215), L"Could not find the main class %s.\n");
    EXPECT_EQ(LoadMessageText(216), L"No main method found in specified class.\n");
    EXPECT_EQ(LoadMessageText(217), L"latest version");
    EXPECT_EQ(LoadMessageText(218), L"maximum version %s");
    EXPECT_EQ(LoadMessageText(219), L"minimum version %s");
    EXPECT_EQ(LoadMessageText(220), L"version %s is required");
    EXPECT_EQ(LoadMessageText(221), L"version between %s and %s");
    EXPECT_EQ(LoadMessageText(222), L"Failed to load Java VM library: %s (errno = %d).\n");
    EXPECT_EQ(LoadMessageText(223), L"failed to initialize");
    EXPECT_EQ(LoadMessageText(224), L"failed to initialize module");
    EXPECT_EQ(LoadMessageText(225), L"unknown");
    EXPECT_EQ(LoadMessageText(226), L"thread detached from VM");
    EXPECT_EQ(LoadMessageText(227), L"JNI version error");
    EXPECT_EQ(LoadMessageText(228), L"not enough memory");
    EXPECT_EQ(LoadMessageText(229), L"VM already created");
    EXPECT_EQ(LoadMessageText(230), L"invalid arguments");
}

TEST(MessageTextTest, AnUnknownNumberIsAnEmptyText) {
    EXPECT_EQ(LoadMessageText(201), L"");
    EXPECT_EQ(LoadMessageText(231), L"");
}

TEST(MessageTextTest, IsBuiltFromATextOrAnEntryOrAFormat) {
    EXPECT_EQ(MessageText(std::wstring_view(L"as it is")).view(), L"as it is");
    EXPECT_STREQ(MessageText(228).c_str(), L"not enough memory");
    const std::wstring longPath(1000, L'p');
    EXPECT_STREQ(MessageText(222, {longPath, -5}).c_str(),
                 (L"Failed to load Java VM library: " + longPath + L" (errno = -5).\n").c_str());
}

TEST(MessageTextTest, HasNoTextForTheIdZero) {
    EXPECT_EQ(MessageText().c_str(), nullptr);
    EXPECT_EQ(MessageText(0).c_str(), nullptr);
    EXPECT_TRUE(MessageText(0).isValid());
}

}  // namespace
}  // namespace tarn
