#include "tools/setup/msi_text.h"

namespace tarn::tools {

// The preprocessor of wixl replaces "$(...)" and has no other way to write "$(" itself.
std::string WixText(std::string_view text) {
    std::string escaped;
    for (const char character : text) {
        if (character == '$') {
            escaped.append("$(var.").append(kDollarVariable).append(")");
        } else {
            escaped += character;
        }
    }
    return escaped;
}

std::string FormattedText(std::string_view text) {
    std::string formatted;
    for (const char character : text) {
        const bool isSpecial =
            character == '[' || character == ']' || character == '{' || character == '}';
        if (isSpecial) {
            formatted.append("[\\").append(1, character).append("]");
        } else {
            formatted += character;
        }
    }
    return formatted;
}

std::string FormattedData(const RegistryValue& value) {
    const std::string mark = {kInstallFolderMark, '\\'};
    std::string data = value.data;
    std::string formatted;
    for (std::size_t at = 0;;) {
        const std::size_t found = data.find(mark, at);
        formatted += FormattedText(std::string_view(data).substr(at, found - at));
        if (found == std::string::npos) break;
        formatted += "[INSTALLDIR]";
        at = found + mark.size();
    }
    return formatted;
}

}  // namespace tarn::tools
