#include "tools/stamp/string_option.h"

#include <charconv>
#include <string_view>

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

std::string Unescaped(std::string_view text) {
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char next = at + 1 < text.size() ? text[at + 1] : '\0';
        if (text[at] == '\\' && (next == 'n' || next == 't' || next == '\\')) {
            plain += next == 'n' ? '\n' : next == 't' ? '\t' : '\\';
            ++at;
        } else {
            plain += text[at];
        }
    }
    return plain;
}

}  // namespace

std::pair<std::uint16_t, std::string> ParseStringOption(const std::string& option) {
    const std::size_t equals = option.find('=');
    const char* const end = option.data() + (equals == std::string::npos ? 0 : equals);
    std::uint16_t id = 0;
    const auto parsed = std::from_chars(option.data(), end, id);
    if (parsed.ec != std::errc() || parsed.ptr != end) {
        throw Failure("--set-string " + option +
                      ": ID=TEXT is required, with a number from 0 to 65535 as ID");
    }
    return {id, Unescaped(std::string_view(option).substr(equals + 1))};
}

}  // namespace tarn::tools
