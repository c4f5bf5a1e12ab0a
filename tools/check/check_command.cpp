#include "tools/check/check_command.h"

#include <memory>

#include "tools/check/report.h"
#include "tools/check/rules.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/settings/known_keys.h"

namespace tarn::tools {
namespace {

constexpr char kFooter[] =
    "The files beside the settings file (jars, splash picture, jre64) are checked as well.\n"
    "\n"
    "Examples:\n"
    "  tarn check build/app/notes.ini\n"
    "  tarn check --strict notes.ini         in a build: fails on warnings\n"
    "  tarn check --json notes.ini           for other programs\n"
    "  tarn check --keys                     every key and the form of its value\n"
    "\n"
    "Exit codes: 0 no errors, 1 warnings and --strict, 2 errors.";

struct Options {
    std::string file;
    std::vector<std::string> allowed;
    bool isStrict = false;
    bool asJson = false;
    bool listsKeys = false;
    bool checksTextOnly = false;
};

void PrintKeys(const Console& console) {
    std::wstring_view section;
    for (const KnownKey& key : KnownKeys()) {
        if (section != key.section) console.PrintLine('[' + Utf8Of(key.section) + ']');
        section = key.section;
        console.PrintLine(Utf8Of(key.key) + "=    ; " + DescribeForm(key));
    }
}

int Check(const Options& options, const Console& console) {
    if (options.listsKeys) {
        PrintKeys(console);
        return kSuccess;
    }
    if (options.file.empty()) throw Failure("no settings file is specified; see tarn check --help");
    const std::vector<Finding> findings = WithoutAllowed(
        CheckSettings(CheckedSettings::Load(PathOf(options.file), !options.checksTextOnly)),
        options.allowed);
    if (options.asJson) {
        console.Print(JsonReport(options.file, findings));
    } else {
        PrintReport(console, options.file, findings);
    }
    if (CountOf(findings, Severity::Error) != 0) return kFailed;
    return options.isStrict && CountOf(findings, Severity::Warning) != 0 ? kWarnings : kSuccess;
}

}  // namespace

void AddCheckCommand(CLI::App& app, const Console& console, int& exitCode) {
    CLI::App* const command = app.add_subcommand("check", "Finds mistakes in a settings file");
    const auto options = std::make_shared<Options>();
    command->add_option("file", options->file, "The settings file")->type_name("NAME.ini");
    command->add_flag("--strict", options->isStrict, "Exit with 1 when there are warnings");
    command
        ->add_option("--allow", options->allowed, "Accept findings with this id; may be repeated")
        ->type_name("ID")
        ->allow_extra_args(false);
    command->add_flag("--json", options->asJson, "Print the findings as JSON");
    command->add_flag("--no-files", options->checksTextOnly,
                      "Check the text only, not the jars and other files that it names");
    command->add_flag("--keys", options->listsKeys, "Print all keys and exit");
    command->footer(kFooter);
    command->callback([options, &console, &exitCode] { exitCode = Check(*options, console); });
}

}  // namespace tarn::tools
