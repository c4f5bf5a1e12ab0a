#include "ui/geometry/placement.h"

#include <gtest/gtest.h>

#include "base/windows.h"

namespace tarn {
namespace {

/// A visible window without a frame.
class PlainWindow {
  public:
    PlainWindow(const RECT& place, HWND owner)
        : window_(CreateWindowExW(0, L"Static", L"", WS_POPUP | WS_VISIBLE, place.left, place.top,
                                  place.right - place.left, place.bottom - place.top, owner,
                                  nullptr, nullptr, nullptr)) {}
    ~PlainWindow() { DestroyWindow(window_); }
    PlainWindow(const PlainWindow&) = delete;
    PlainWindow& operator=(const PlainWindow&) = delete;

    HWND handle() const { return window_; }
    RECT Place() const {
        RECT place{};
        GetWindowRect(window_, &place);
        return place;
    }

  private:
    HWND window_;
};

TEST(CenterWindowTest, CentersAWindowOverItsOwner) {
    const PlainWindow owner({300, 200, 700, 500}, nullptr);
    const PlainWindow window({0, 0, 100, 100}, owner.handle());
    CenterWindow(window.handle());
    EXPECT_EQ(window.Place().left, 450);
    EXPECT_EQ(window.Place().top, 300);
    EXPECT_EQ(window.Place().right, 550);
    EXPECT_EQ(window.Place().bottom, 400);
}

TEST(CenterWindowTest, WithoutAVisibleOwnerCentersItInTheWorkArea) {
    RECT workArea{};
    ASSERT_TRUE(SystemParametersInfoW(SPI_GETWORKAREA, 0, &workArea, 0));
    const LONG left = workArea.left + (workArea.right - workArea.left - 100) / 2;

    const PlainWindow alone({0, 0, 100, 100}, nullptr);
    CenterWindow(alone.handle());
    EXPECT_EQ(alone.Place().left, left);

    const PlainWindow owner({300, 200, 340, 240}, nullptr);
    ShowWindow(owner.handle(), SW_HIDE);
    const PlainWindow owned({0, 0, 100, 100}, owner.handle());
    CenterWindow(owned.handle());
    EXPECT_EQ(owned.Place().left, left);
}

}  // namespace
}  // namespace tarn
