#include "settings/jre_path_store.h"

namespace tarn {

bool IsAnsiText(std::string_view bytes) {
    const std::string_view mark = bytes.substr(0, 2);
    return mark != "\xFF\xFE" && mark != "\xFE\xFF" && bytes.substr(0, 3) != "\xEF\xBB\xBF" &&
           bytes.find('\0') == std::string_view::npos;
}

}  // namespace tarn
