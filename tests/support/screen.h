#pragma once

#include <vector>

#include "base/windows.h"

namespace tarn::test {

/// The pixels of a part of the screen when the object is created.
class ScreenShot {
  public:
    explicit ScreenShot(const RECT& part);

    /// The colour at a point of the screen, which must be in the part.
    COLORREF At(int x, int y) const;

  private:
    RECT part_;
    std::vector<COLORREF> pixels_;
};

/// The part of the rectangle that is on the primary screen.
RECT OnScreen(const RECT& rectangle);

/// Whether two colours differ by at most `tolerance` in each of red, green and blue.
bool AlmostEqual(COLORREF a, COLORREF b, int tolerance);

/// A topmost window of this process that covers a part of the screen in one colour. The destructor
/// destroys it.
class CoveringWindow {
  public:
    static constexpr COLORREF kColor = RGB(0, 255, 1);

    explicit CoveringWindow(const RECT& part);
    ~CoveringWindow();
    CoveringWindow(const CoveringWindow&) = delete;
    CoveringWindow& operator=(const CoveringWindow&) = delete;

    /// Handles the window's messages; called while waiting for the window to be painted.
    void PumpMessages() const;

  private:
    HWND window_;
};

}  // namespace tarn::test
