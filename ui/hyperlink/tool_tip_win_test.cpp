#include "ui/hyperlink/tool_tip.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

TEST(ToolTipTest, TheToolRecordGrewWithWindowsVista) {
    EXPECT_EQ(ToolRecordSize(true), 72u);
    EXPECT_EQ(ToolRecordSize(false), 64u);
}

TEST(ToolTipTest, WithoutAWindowNothingHappens) {
    ToolTip toolTip;
    toolTip.SetTool(L"text", {0, 0, 10, 10});
    toolTip.Relay(WM_MOUSEMOVE, 0, 0);
    EXPECT_EQ(toolTip.windowHandle(), nullptr);
}

}  // namespace
}  // namespace tarn
