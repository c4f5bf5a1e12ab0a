#include "tools/wrap/splash_picture.h"

#include <string_view>

namespace tarn::tools {

std::string PictureEnding(std::span<const std::byte> picture) {
    const std::string_view text(reinterpret_cast<const char*>(picture.data()), picture.size());
    if (text.substr(0, 4) == "\x89PNG") return ".png";
    if (text.substr(0, 4) == "GIF8") return ".gif";
    if (text.substr(0, 3) == "\xFF\xD8\xFF") return ".jpg";
    return {};
}

}  // namespace tarn::tools
