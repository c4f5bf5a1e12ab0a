#include "tools/explain/text_page.h"

namespace tarn::tools {
namespace {

constexpr std::size_t kIndent = 2;
constexpr std::size_t kNameWidth = 18;

}  // namespace

void TextPage::Heading(std::string_view text) {
    if (!text_.empty()) text_ += '\n';
    text_ += Styled(Style::Bold, text) + '\n';
}

void TextPage::Line(std::string_view text, int depth) {
    const std::string indent(kIndent * static_cast<std::size_t>(depth), ' ');
    while (!text.empty() && text.back() == '\n') text.remove_suffix(1);
    for (;;) {
        const std::size_t end = text.find('\n');
        text_ += indent + std::string(text.substr(0, end)) + '\n';
        if (end == std::string_view::npos) return;
        text.remove_prefix(end + 1);
    }
}

void TextPage::Value(std::string_view name, std::string_view value, int depth) {
    std::string line(name);
    line.resize(std::max(line.size() + 2, kNameWidth), ' ');
    Line(line + std::string(value), depth);
}

std::string_view YesOrNo(bool value) {
    return value ? "yes" : "no";
}

std::string SizeText(unsigned long long bytes) {
    constexpr const char* kUnits[] = {"bytes", "KiB", "MiB", "GiB", "TiB"};
    std::size_t unit = 0;
    unsigned long long whole = bytes;
    while (whole >= 10'240 && unit + 1 < std::size(kUnits)) {
        whole /= 1024;
        ++unit;
    }
    const std::string exact = std::to_string(bytes) + " bytes";
    return unit == 0 ? exact : std::to_string(whole) + ' ' + kUnits[unit] + " (" + exact + ')';
}

}  // namespace tarn::tools
