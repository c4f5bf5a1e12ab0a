#include "tools/explain/jvm_report.h"

#include <string_view>

namespace tarn::tools {

bool HasEmptyClassPathElement(const std::vector<std::string>& options) {
    constexpr std::string_view kPrefix = "-Djava.class.path=";
    for (auto option = options.rbegin(); option != options.rend(); ++option) {
        if (!option->starts_with(kPrefix)) continue;
        const std::string_view path = std::string_view(*option).substr(kPrefix.size());
        return path.empty() || path.front() == ';' || path.back() == ';' ||
               path.find(";;") != std::string_view::npos;
    }
    return false;
}

}  // namespace tarn::tools
