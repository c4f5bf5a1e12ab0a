#pragma once

#include <string>
#include <string_view>

#include "tools/common/console.h"

namespace tarn::tools {

/// Builds a text of headings, lines, and names with values.
class TextPage {
  public:
    explicit TextPage(const Console& console) : console_(console) {}

    void Heading(std::string_view text);

    /// A line. Further lines of the text get the same indent.
    void Line(std::string_view text, int depth = 1);
    void Value(std::string_view name, std::string_view value, int depth = 1);

    std::string Styled(Style style, std::string_view text) const {
        return console_.Styled(style, text);
    }

    std::string Take() { return std::move(text_); }

  private:
    const Console& console_;
    std::string text_;
};

/// "yes" or "no".
std::string_view YesOrNo(bool value);

/// Bytes in a readable unit, followed by the exact number: "512 MiB (536870912 bytes)".
std::string SizeText(unsigned long long bytes);

}  // namespace tarn::tools
