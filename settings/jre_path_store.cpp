#include "settings/jre_path_store.h"

namespace tarn {

bool IsAnsiText(std::string_view bytes) {
    // The first byte of a mark is enough: no line of a settings file begins with one of these.
    constexpr std::string_view kMarks = "\xEF\xFE\xFF";
    if (!bytes.empty() && kMarks.find(bytes.front()) != std::string_view::npos) return false;
    return bytes.find('\0') == std::string_view::npos;
}

}  // namespace tarn
