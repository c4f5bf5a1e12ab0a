#pragma once

#include <string>
#include <string_view>

#include "base/windows.h"

namespace tarn::test {

/// A picture of `tests/pictures`; its full path.
std::wstring PicturePath(std::wstring_view name);

/// The size of most of those pictures.
inline constexpr SIZE kPatternSize{160, 120};

/// What those pictures show at a place.
COLORREF PatternAt(int x, int y, SIZE size = kPatternSize);

/// The bytes of a 24-bit bitmap file that shows the pattern at any size.
std::string PatternBitmap(SIZE size);

/// The first bytes of a bitmap file of black and white pixels; `PixelBytes(size)` zeros behind them
/// make it whole.
std::string BlackBitmapHeader(SIZE size);
std::uint64_t PixelBytes(SIZE size);

}  // namespace tarn::test
