#pragma once

#include <string>
#include <string_view>

#include "base/windows.h"

namespace tarn::test {

/// The full path of a picture in `tests/pictures`.
std::wstring PicturePath(std::wstring_view name);

/// The size of most of those pictures.
inline constexpr SIZE kPatternSize{160, 120};

/// The colour of those pictures at a point.
COLORREF PatternAt(int x, int y, SIZE size = kPatternSize);

/// The bytes of a 24-bit bitmap file of any size with that pattern.
std::string PatternBitmap(SIZE size);

/// The first bytes of a bitmap file of black and white pixels; `PixelBytes(size)` zeros complete
/// it.
std::string BlackBitmapHeader(SIZE size);
std::uint64_t PixelBytes(SIZE size);

}  // namespace tarn::test
