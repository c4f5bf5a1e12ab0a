#include "tools/setup/setup_command.h"

#include <memory>

#include "tools/common/config_file.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/setup/setup.h"

namespace tarn::tools {
namespace {

constexpr char kExamples[] =
    "Examples:\n"
    "  tarn wrap app.jar --name App --vendor Acme --version 2.1.0 --out dist/App\n"
    "  tarn setup dist/App\n"
    "      creates App-2.1.0-setup.exe, which installs for the user without an administrator\n"
    "  tarn setup dist/App --license LICENSE --associate .app=\"App document,icons/app.ico\" \\\n"
    "      --sign \"./sign.sh\"\n"
    "Requires makensis (package nsis). The setup program takes /S (silent) and, as the last\n"
    "argument, /D=FOLDER without quotes.";

struct Arguments {
    std::string folder, out, script, license, config;
    std::vector<std::string> associations, protocols;
    bool isMsi = false;
    SetupRequest request;
};

void RunSetup(CLI::App& command, const Arguments& arguments, const Console& console) {
    if (!arguments.config.empty()) ApplyConfigFile(command, PathOf(arguments.config));
    if (arguments.folder.empty()) throw Failure("no folder is specified; see tarn setup --help");
    SetupRequest request = arguments.request;
    request.folder = PathOf(arguments.folder);
    request.out = PathOf(arguments.out);
    request.script = PathOf(arguments.script);
    request.license = PathOf(arguments.license);
    for (const std::string& text : arguments.associations) {
        request.associations.push_back(ParseAssociation(text));
    }
    for (const std::string& text : arguments.protocols) {
        request.protocols.push_back(ParseProtocol(text));
    }
    if (arguments.isMsi) request.kind = SetupKind::Msi;
    if (arguments.isMsi && !request.license.empty()) {
        throw Failure("--license and --msi exclude each other: an MSI has no page for a license");
    }
    if (request.signCommand.find_first_of("\r\n") != std::string::npos) {
        throw Failure("--sign: the command contains a line break");
    }
    console.PrintLine(Utf8OfPath(MakeSetup(request, console)));
}

void AddOptions(CLI::App& command, Arguments& arguments) {
    SetupRequest& request = arguments.request;
    const auto option = [&](const char* name, auto& value, const char* type, const char* help) {
        command.add_option(name, value, help)->type_name(type)->allow_extra_args(false);
    };
    option("--out,-o", arguments.out, "FILE",
           "File to create (default: NAME-VERSION-setup.exe or .msi in the current directory)");
    option("--executable", request.executable, "FILE",
           "The application's executable, if the folder has several");
    option("--name", request.name, "TEXT", "Product name (default: the executable's)");
    option("--version", request.version, "TEXT", "Version (default: the executable's)");
    option("--vendor", request.vendor, "TEXT", "Publisher (default: the executable's company)");
    option("--description", request.description, "TEXT",
           "Description, shown for the shortcut (default: the executable's)");
    option("--id", request.id, "ID",
           "Id by which later versions recognise the product; must never change (default: derived "
           "from vendor and name)");
    option("--license", arguments.license, "FILE", "License to accept: UTF-8 text or RTF");
    command.add_flag("--per-machine", request.perMachine,
                     "Install for all users, which requires an administrator");
    command.add_flag("--desktop-shortcut", request.desktopShortcut,
                     "Create a shortcut on the desktop, too");
    option("--associate", arguments.associations, ".EXT=TEXT[,ICON]",
           "File extension to open, the kind of its documents and, in the folder, their icon "
           "(.ico); may be repeated");
    option("--protocol", arguments.protocols, "SCHEME=TEXT",
           "URL scheme to open, and its description; may be repeated");
    command.add_flag("--msi", arguments.isMsi,
                     "Create an MSI by wixl (packages wixl and msitools) instead");
    option("--url", request.url, "URL",
           "Address where users download the result: writes manifests for winget and scoop beside "
           "it");
    option("--homepage", request.homepage, "URL",
           "Home page in the manifests (default: the site of --url)");
    option("--license-name", request.licenseName, "TEXT",
           "License in the manifests, such as MIT (default: Proprietary)");
    option("--sign", request.signCommand, "COMMAND",
           "Shell command that signs a file in place; the file is its last argument");
    option("--script", arguments.script, "FOLDER",
           "New folder in which the script for makensis and its inputs remain");
    command.add_flag("--replace", request.replaces, "Replace an existing setup program");
    AddConfigOption(command, arguments.config);
}

}  // namespace

void AddSetupCommand(CLI::App& app, const Console& console, int& exitCode) {
    auto arguments = std::make_shared<Arguments>();
    CLI::App& command = *app.add_subcommand(
        "setup", "Creates a setup program from a folder that tarn wrap has created");
    command.footer(kExamples);
    command.add_option("folder", arguments->folder, "The application's folder")
        ->type_name("FOLDER");
    AddOptions(command, *arguments);
    command.callback([arguments, &command, &console, &exitCode] {
        RunSetup(command, *arguments, console);
        exitCode = kSuccess;
    });
}

}  // namespace tarn::tools
