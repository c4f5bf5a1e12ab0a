#pragma once

#include <vector>

#include "base/windows.h"

namespace tarn::test {

/// A picture of a part of the screen, as the user sees it at this moment.
class ScreenShot {
  public:
    explicit ScreenShot(const RECT& part);

    /// The colour at a place of the screen, which must lie in the part.
    COLORREF At(int x, int y) const;

  private:
    RECT part_;
    std::vector<COLORREF> pixels_;
};

/// The part of the rectangle that lies on the primary screen.
RECT OnScreen(const RECT& rectangle);

/// Whether two colours differ by no more than `tolerance` in each of red, green and blue.
bool AlmostEqual(COLORREF a, COLORREF b, int tolerance);

/// A window of this process that covers a part of the screen, above all others, in one colour.
/// Gone with the object.
class CoveringWindow {
  public:
    static constexpr COLORREF kColor = RGB(0, 255, 1);

    explicit CoveringWindow(const RECT& part);
    ~CoveringWindow();
    CoveringWindow(const CoveringWindow&) = delete;
    CoveringWindow& operator=(const CoveringWindow&) = delete;

    /// Lets the window paint itself; to be called while waiting for it.
    void PumpMessages() const;

  private:
    HWND window_;
};

}  // namespace tarn::test
