#include "settings/jre_path_store.h"

namespace tarn {

bool IsAnsiText(std::string_view bytes) {
    // Text in UTF-16 contains null characters, unless it is nothing but the mark.
    return bytes.substr(0, 2) != "\xFF\xFE" && bytes.substr(0, 3) != "\xEF\xBB\xBF" &&
           bytes.find('\0') == std::string_view::npos;
}

}  // namespace tarn
