#pragma once

#include <gtest/gtest.h>

#include "tests/unit_support/browser_colors_in_registry.h"
#include "tests/unit_support/link_parent.h"
#include "tests/unit_support/picture_of_control.h"
#include "ui/hyperlink/hyper_link.h"

namespace tarn {

inline constexpr wchar_t kAddress[] = L"https://example.com/";
inline constexpr COLORREF kBlue = RGB(0, 0, 255);
inline constexpr COLORREF kPurple = RGB(128, 0, 128);

/// A parent window with a link, without link colours of the user.
class HyperLinkFixture : public testing::Test {
  protected:
    void SetUp() override { ClearBrowserColors(); }
    void TearDown() override { ClearBrowserColors(); }

    /// Attaches a link object with default options to the control.
    HWND AttachTo(const wchar_t* text, DWORD style = SS_LEFT) {
        const HWND control = parent_.AddStatic(text, style);
        EXPECT_TRUE(link_.Attach(control));
        return control;
    }

    LinkParent parent_;
    HyperLink link_;
};

}  // namespace tarn
