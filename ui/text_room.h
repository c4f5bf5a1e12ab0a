#pragma once

#include "ui/pixel_rect.h"

namespace tarn {

/// Where a text that needs `neededHeight` goes: `place` when that is high enough. Otherwise it
/// grows downwards to `lowest` at most, then upwards to `highest` at most.
PixelRect MakeRoom(const PixelRect& place, std::int32_t neededHeight, std::int32_t highest,
                   std::int32_t lowest);

}  // namespace tarn
