#include "tools/common/config_file.h"

#include <set>
#include <sstream>

#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/common/whole_file.h"

namespace tarn::tools {
namespace {

constexpr std::uintmax_t kLargestFile = 1U << 20U;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// Whether the line has a backslash between double quotes, outside of single quotes. Versions of the
// library differ in whether that is an escape, and would read the same file differently.
bool HasEscape(std::string_view line) {
    char quote = '\0';
    for (const char character : line) {
        if (character == '\\' && quote == '"') return true;
        if (quote == '\0' && (character == '"' || character == '\'')) {
            quote = character;
        } else if (character == quote) {
            quote = '\0';
        }
    }
    return false;
}

void CheckLine(std::string_view line, const std::filesystem::path& file) {
    const std::size_t begin = line.find_first_not_of(" \t");
    if (begin == std::string_view::npos || line[begin] == '#' || line[begin] == ';') return;
    if (HasEscape(line)) {
        throw Failure(file,
                      "a backslash between double quotes: quote the value with single "
                      "quotes, or write paths with \"/\": " +
                          std::string(line));
    }
}

std::vector<CLI::ConfigItem> ReadItems(const std::filesystem::path& file) {
    const Bytes content = ReadWholeFile(file, kLargestFile);
    std::string text(AsText(content));
    if (text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
    // Every invalid sequence becomes U+FFFD, which is encoded differently.
    if (Utf8Of(WideOf(text)) != text) throw Failure(file, "is not UTF-8 text; convert it");
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) CheckLine(line, file);
    std::istringstream stream(text);
    CLI::ConfigTOML format;
    // Comments are lines of their own: "#" inside a value, even a quoted one, would end it.
    format.comment('\0');
    return format.from_config(stream);
}

CLI::Option* FindOption(CLI::App& command, const CLI::ConfigItem& item) {
    if (!item.parents.empty()) return nullptr;
    CLI::Option* const option = command.get_option_no_throw("--" + item.name);
    CLI::Option* const found = option != nullptr ? option : command.get_option_no_throw(item.name);
    const bool isUsable = found != nullptr && found->get_configurable() && item.name[0] != '-';
    return isUsable ? found : nullptr;
}

void Apply(CLI::App& command, const std::filesystem::path& file) {
    std::set<CLI::Option*> given;
    for (CLI::Option* const option : command.get_options()) {
        if (!option->empty()) given.insert(option);
    }
    std::set<CLI::Option*> changed;
    for (const CLI::ConfigItem& item : ReadItems(file)) {
        CLI::Option* const option = FindOption(command, item);
        if (option == nullptr) {
            throw Failure(file, "\"" + item.fullname() + "\" is not an option of tarn " +
                                    command.get_name() + "; see tarn " + command.get_name() +
                                    " --help");
        }
        if (given.count(option) != 0) continue;
        if (option->get_expected_min() == 0) {
            const std::string value = CLI::ConfigTOML().to_flag(item);
            option->add_result(option->get_flag_value(item.name, value));
        } else {
            for (const std::string& value : item.inputs) option->add_result(value);
        }
        changed.insert(option);
    }
    for (CLI::Option* const option : changed) {
        if (!option->empty()) option->run_callback();
    }
}

}  // namespace

void AddConfigOption(CLI::App& command, std::string& file) {
    command
        .add_option("--config", file,
                    "Read options from a file with lines such as name = \"App\"; those of the "
                    "command line take precedence")
        ->type_name("FILE")
        ->configurable(false);
}

void ApplyConfigFile(CLI::App& command, const std::filesystem::path& file) {
    try {
        Apply(command, file);
    } catch (const CLI::ParseError& error) {
        throw Failure(file,
                      std::string(error.what()) + "; see tarn " + command.get_name() + " --help");
    }
}

}  // namespace tarn::tools
