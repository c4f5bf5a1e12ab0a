#pragma once

#include <cstdint>
#include <vector>

#include "base/windows.h"

namespace tarn::bench {

/// Returns the first visible window of a process that has an extent (`EnumWindows`), null when
/// there is none.
HWND FirstVisibleWindow(unsigned long process);

/// The screen as it was when the object was made. Windows that appear later are seen by their
/// difference from it.
class Screen {
  public:
    /// Copies the primary screen. Throws std::runtime_error when it cannot be read.
    Screen();

    /// Returns whether the first visible window of the process has left a pixel on the screen. Only
    /// the line through the middle of the window is read: a whole window would take longer than the
    /// drawing of its first pixels.
    bool ShowsPixelOf(unsigned long process) const;

  private:
    using Pixels = std::vector<std::uint32_t>;

    static Pixels Read(int left, int top, int width, int height);

    int width_;
    int height_;
    Pixels pixels_;
};

}  // namespace tarn::bench
