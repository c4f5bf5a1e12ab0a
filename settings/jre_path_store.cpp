#include "settings/jre_path_store.h"

namespace tarn {

bool IsAnsiText(std::string_view bytes) {
    // The marks begin with EF, FE or FF, which no line of a settings file does.
    if (!bytes.empty() && static_cast<unsigned char>(bytes.front()) >= 0xEF) return false;
    return bytes.find('\0') == std::string_view::npos;
}

}  // namespace tarn
