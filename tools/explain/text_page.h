#pragma once

#include <string>
#include <string_view>

#include "tools/common/console.h"

namespace tarn::tools {

/// A text in the making: headings, and below them lines of a name and a value.
class TextPage {
  public:
    explicit TextPage(const Console& console) : console_(console) {}

    void Heading(std::string_view text);

    /// One line. A value of several lines goes on below its first.
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

/// Bytes in a unit that reads well, with the exact number behind: "512 MiB (536870912 bytes)".
std::string SizeText(unsigned long long bytes);

}  // namespace tarn::tools
