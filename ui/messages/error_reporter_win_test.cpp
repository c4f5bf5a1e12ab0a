#include "ui/messages/error_reporter.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

std::wstring shown;

class ErrorReporterTest : public testing::Test {
  protected:
    ErrorReporterTest() {
        shown.clear();
        ReadMessagesInstead([](std::wstring_view text) { shown = text; });
    }
    ~ErrorReporterTest() override { ReadMessagesInstead(nullptr); }

    ErrorReporter errors_;
};

TEST_F(ErrorReporterTest, LoadsATextNamedByItsId) {
    EXPECT_NE(errors_.ShowErrorMessage(216), 0);
    EXPECT_EQ(shown, L"No main method found in specified class.\n");
}

TEST_F(ErrorReporterTest, FillsTheFormatWithTheArgument) {
    EXPECT_NE(errors_.ShowFormattedError(215, L"a/%s"), 0);
    EXPECT_EQ(shown, L"Could not find the main class a/%s.\n");
}

TEST_F(ErrorReporterTest, FramesAWindowsFailureWithTheLastError) {
    SetLastError(126);
    EXPECT_NE(errors_.ShowWindowsFailure(208), 0);
    EXPECT_EQ(shown, L"Windows exception: failed to get the module path (errno = 126).\n");
}

TEST_F(ErrorReporterTest, FramesAJniFailureWithItsReason) {
    EXPECT_NE(errors_.ShowJniFailure(213, 228), 0);
    EXPECT_EQ(shown, L"JNI exception: failed to create the Java VM\nReason: not enough memory.\n");
}

TEST_F(ErrorReporterTest, LeavesTheReasonOfAnUnknownJniFailureEmpty) {
    EXPECT_NE(errors_.ShowJniFailure(213, 0), 0);
    EXPECT_EQ(shown, L"JNI exception: failed to create the Java VM\nReason: .\n");
}

}  // namespace
}  // namespace tarn
