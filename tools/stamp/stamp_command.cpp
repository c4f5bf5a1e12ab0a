#include "tools/stamp/stamp_command.h"

#include <memory>

#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/common/whole_file.h"
#include "tools/java/jar_file.h"
#include "tools/settings/embedded_settings_text.h"
#include "tools/settings/ini_encoding.h"
#include "tools/stamp/icon_file.h"
#include "tools/stamp/stamp.h"
#include "tools/stamp/string_option.h"

namespace tarn::tools {
namespace {

constexpr char kExamples[] =
    "Examples:\n"
    "  tarn stamp launcher.exe --out app.exe --icon app.png --version 2.1.0 \\\n"
    "      --product \"My App\" --company \"My Company\"\n"
    "  tarn stamp launcher.exe --out app.exe --settings app.ini --jar app.jar\n"
    "      Creates a single file; app.ini sets \"Embedded Jar=Yes\" in [Application].\n"
    "  tarn stamp app.exe --out app.exe --set-string 210=\"Keine Hauptklasse in der INI-Datei.\"\n"
    "Sign the executable afterwards: a change invalidates the signature.";

struct Arguments {
    std::string launcher, out, icon, settings, jar, manifest;
    std::string version, product, description, company, copyright;
    std::vector<std::string> texts;
    std::vector<std::string> strings;
    ManifestChanges manifestChanges;
    bool dropsSignature = false;
};

std::pair<std::string, std::string> SplitAtEquals(const std::string& option,
                                                  const std::string& text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos || equals == 0) {
        throw Failure(option + " " + text + ": NAME=TEXT is required");
    }
    return {text.substr(0, equals), text.substr(equals + 1)};
}

void AddVersionTexts(const Arguments& arguments, StampChanges& changes) {
    const auto add = [&](const char* name, const std::string& text) {
        if (!text.empty()) changes.versionTexts.emplace_back(name, text);
    };
    add("ProductName", arguments.product);
    add("FileDescription",
        arguments.description.empty() ? arguments.product : arguments.description);
    add("CompanyName", arguments.company);
    add("LegalCopyright", arguments.copyright);
    for (const std::string& text : arguments.texts) {
        changes.versionTexts.push_back(SplitAtEquals("--version-text", text));
    }
    if (changes.version.empty() && changes.versionTexts.empty()) return;
    const std::filesystem::path file = PathOf(arguments.out);
    changes.versionTexts.emplace(changes.versionTexts.begin(), "OriginalFilename",
                                 Utf8OfPath(file.filename()));
    changes.versionTexts.emplace(changes.versionTexts.begin(), "InternalName",
                                 Utf8OfPath(file.stem()));
}

void RunStamp(const Arguments& arguments, const Console& console) {
    StampChanges changes;
    std::vector<std::string> warnings;
    changes.dropsSignature = arguments.dropsSignature;
    changes.version = arguments.version;
    AddVersionTexts(arguments, changes);
    for (const std::string& text : arguments.strings)
        changes.strings.push_back(ParseStringOption(text));
    if (!arguments.icon.empty()) {
        changes.icon = ReadIconFile(PathOf(arguments.icon));
    }
    if (!arguments.settings.empty()) {
        const Bytes file = ReadWholeFile(PathOf(arguments.settings));
        changes.settings = EmbeddedSettingsText(SettingsDocument(DecodeIni(file).text), warnings);
        for (std::string& warning : warnings) warning.insert(0, arguments.settings + ": ");
    }
    if (!arguments.manifest.empty()) {
        changes.manifest = ReadApplicationManifest(PathOf(arguments.manifest));
    }
    changes.manifestChanges = arguments.manifestChanges;
    if (!arguments.jar.empty()) {
        const std::filesystem::path file = PathOf(arguments.jar);
        changes.jar = ReadWholeFile(file);
        const JarFile checked(*changes.jar, file);
    }
    const std::filesystem::path launcher = PathOf(arguments.launcher);
    const Bytes content = ReadWholeFile(launcher);
    const Bytes stamped = WithFileName(launcher, [&] { return Stamp(content, changes, warnings); });
    WriteWholeFile(PathOf(arguments.out), stamped);
    for (const std::string& warning : warnings) console.PrintWarning(warning);
    console.PrintLine(arguments.out + ": " + std::to_string(stamped.size()) + " bytes");
}

}  // namespace

void AddStampCommand(CLI::App& app, const Console& console, int& exitCode) {
    auto arguments = std::make_shared<Arguments>();
    CLI::App& command = *app.add_subcommand(
        "stamp", "Sets icon, version information, strings, settings and jar of an executable");
    command.footer(kExamples);
    command
        .add_option("launcher", arguments->launcher,
                    "The executable to change; it remains untouched")
        ->required()
        ->type_name("LAUNCHER.exe");
    const auto option = [&](const char* name, std::string& value, const char* type,
                            const char* help) {
        return command.add_option(name, value, help)->type_name(type);
    };
    option("--out,-o", arguments->out, "FILE", "The new executable")->required();
    option("--icon", arguments->icon, "FILE", "Icon: an .ico file, or a .png (256 pixels or more)");
    option("--version", arguments->version, "TEXT",
           "Version of file and product, for example 2.1.0");
    option("--product", arguments->product, "TEXT", "Product name");
    option("--description", arguments->description, "TEXT",
           "Description, shown by the task manager (default: the product name)");
    option("--company", arguments->company, "TEXT", "Company name");
    option("--copyright", arguments->copyright, "TEXT", "Copyright notice");
    command
        .add_option("--version-text", arguments->texts,
                    "Another text of the version information; may be repeated")
        ->type_name("NAME=TEXT")
        ->allow_extra_args(false);
    option("--settings", arguments->settings, "FILE", "Settings file to embed");
    option("--jar", arguments->jar, "FILE", "Jar to append, for \"Embedded Jar=Yes\"");
    command
        .add_option("--set-string", arguments->strings,
                    "String table entry, with \\n for a line break; may be repeated")
        ->type_name("ID=TEXT")
        ->allow_extra_args(false);
    option("--manifest", arguments->manifest, "FILE",
           "Manifest (XML) that replaces the existing one");
    command.add_flag("--admin", arguments->manifestChanges.requiresAdministrator,
                     "Start as administrator only (in the manifest)");
    command.add_flag("--utf8", arguments->manifestChanges.usesUtf8,
                     "UTF-8 as the 8-bit code page, from Windows 10 version 1903 on (in the "
                     "manifest)");
    command.add_flag("--drop-signature", arguments->dropsSignature,
                     "Remove the signature of a signed executable");
    command.callback([arguments, &console, &exitCode] {
        RunStamp(*arguments, console);
        exitCode = kSuccess;
    });
}

}  // namespace tarn::tools
