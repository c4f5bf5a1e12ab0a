#include "ui/text_room.h"

#include <algorithm>

namespace tarn {

PixelRect MakeRoom(const PixelRect& place, std::int32_t neededHeight, std::int32_t highest,
                   std::int32_t lowest) {
    if (neededHeight <= place.height()) return place;
    PixelRect grown = place;
    grown.bottom = std::max(place.bottom, std::min(place.top + neededHeight, lowest));
    grown.top = std::min(place.top, std::max(grown.bottom - neededHeight, highest));
    return grown;
}

}  // namespace tarn
