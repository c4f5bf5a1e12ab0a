#include "tools/wrap/wrap_command.h"

#include <algorithm>
#include <map>
#include <memory>

#include "tools/common/config_file.h"
#include "tools/common/failure.h"
#include "tools/common/system.h"
#include "tools/common/text_encoding.h"
#include "tools/stamp/string_option.h"
#include "tools/wrap/wrap.h"

namespace tarn::tools {
namespace {

constexpr char kExamples[] =
    "Examples:\n"
    "  tarn wrap app.jar\n"
    "      creates the folder app with app.exe, app.ini, app.jar and the jars of its Class-Path\n"
    "  tarn wrap target/app.jar --class-path target/lib --out dist/App --name App \\\n"
    "      --icon app.png --splash splash.png --runtime jre --version 2.1.0\n"
    "  tarn wrap app.jar --single-file\n"
    "      creates one executable that contains the jar and the settings\n"
    "Comments in NAME.ini explain the settings; tarn check finds mistakes in them.";

struct Arguments {
    std::string jar, out, icon, splash, runtime, launcher, manifest, config, endsWith, startsAs;
    std::vector<std::string> classPath, added, settings, strings;
    WrapRequest request;
};

std::vector<std::filesystem::path> PathsOf(const std::vector<std::string>& texts) {
    std::vector<std::filesystem::path> paths;
    paths.reserve(texts.size());
    for (const std::string& text : texts) paths.push_back(PathOf(text));
    return paths;
}

std::filesystem::path LauncherFor(const std::string& typed) {
    if (!typed.empty()) return PathOf(typed);
    const std::filesystem::path beside = ProgramFolder() / "launcher.exe";
    // A checkout builds the launcher and this program for other systems in two folders.
    const std::filesystem::path built = ProgramFolder().parent_path() / "release" / "launcher.exe";
    std::error_code error;
    for (const std::filesystem::path& launcher : {beside, built}) {
        if (std::filesystem::exists(launcher, error)) return launcher;
    }
    throw Failure(beside,
                  "was not found; copy it there from a release, build it in a checkout with "
                  "\"cmake --preset release\" and \"cmake --build --preset release "
                  "--target launcher\", or specify it with --launcher");
}

// No option has a use for them: a line break would end a setting.
void CheckTexts(const CLI::App& command) {
    for (const CLI::Option* const option : command.get_options()) {
        for (const std::string& text : option->results()) {
            const bool hasControl = std::any_of(text.begin(), text.end(), [](char character) {
                return static_cast<unsigned char>(character) < ' ';
            });
            if (hasControl) {
                throw Failure(option->get_name() +
                              ": the value contains a line break or another control character");
            }
        }
    }
}

EndsWith EndOf(const Arguments& arguments) {
    const bool isSingle = arguments.request.singleInstance;
    if (arguments.endsWith.empty()) return isSingle ? EndsWith::Exit : EndsWith::Threads;
    if (arguments.endsWith == "threads" && isSingle) {
        throw Failure(
            "--single-instance and --ends-with threads exclude each other; use exit, or main for a "
            "main method that waits");
    }
    static const std::map<std::string, EndsWith> kWords = {
        {"threads", EndsWith::Threads}, {"exit", EndsWith::Exit}, {"main", EndsWith::Main}};
    return kWords.at(arguments.endsWith);
}

StartsAs StartOf(const std::string& word) {
    static const std::map<std::string, StartsAs> kWords = {{"", StartsAs::Automatic},
                                                           {"class-path", StartsAs::ClassPath},
                                                           {"module", StartsAs::Module}};
    return kWords.at(word);
}

std::pair<std::string, std::string> ParseSetting(const std::string& text) {
    const std::size_t equals = text.find('=');
    const std::size_t slash = text.find('/');
    if (equals == std::string::npos || slash == 0 || slash >= equals) {
        throw Failure("--set " + text + ": SECTION/KEY=VALUE is required");
    }
    return {text.substr(0, equals), text.substr(equals + 1)};
}

void RunWrap(CLI::App& command, const Arguments& arguments, const Console& console) {
    if (!arguments.config.empty()) ApplyConfigFile(command, PathOf(arguments.config));
    CheckTexts(command);
    if (arguments.jar.empty()) throw Failure("no jar is specified; see tarn wrap --help");
    WrapRequest request = arguments.request;
    request.jar = PathOf(arguments.jar);
    request.out = PathOf(arguments.out);
    request.config = PathOf(arguments.config);
    request.icon = PathOf(arguments.icon);
    request.splash = PathOf(arguments.splash);
    request.runtime = PathOf(arguments.runtime);
    request.classPath = PathsOf(arguments.classPath);
    request.added = PathsOf(arguments.added);
    request.manifest = PathOf(arguments.manifest);
    request.endsWith = EndOf(arguments);
    request.startsAs = StartOf(arguments.startsAs);
    for (const std::string& text : arguments.settings) {
        request.settings.push_back(ParseSetting(text));
    }
    for (const std::string& text : arguments.strings) {
        request.strings.push_back(ParseStringOption(text));
    }
    if (request.singleFile && !request.splash.empty()) {
        throw Failure(
            "--splash and --single-file exclude each other: a splash requires files beside the "
            "executable");
    }
    if (request.keepsWorkingDirectory && !request.splash.empty()) {
        throw Failure(
            "--splash and --keep-working-dir exclude each other: the picture is looked up in the "
            "current directory, which has to be the application's folder");
    }
    request.launcher = LauncherFor(arguments.launcher);
    console.PrintLine(Utf8OfPath(Wrap(request, console)));
}

void AddOptions(CLI::App& command, Arguments& arguments) {
    WrapRequest& request = arguments.request;
    const auto option = [&](const char* name, auto& value, const char* type, const char* help) {
        command.add_option(name, value, help)->type_name(type)->allow_extra_args(false);
    };
    option("--out,-o", arguments.out, "FOLDER",
           "Folder to create (default: NAME in the current directory)");
    option("--name", request.name, "NAME", "Name of the executable (default: the jar's)");
    option("--icon", arguments.icon, "FILE", "Icon: an .ico file, or a .png (256 pixels or more)");
    option("--splash", arguments.splash, "FILE", "Splash picture: PNG, GIF or JPEG");
    command.add_flag("--no-splash", request.noSplash, "Ignore the jar's own splash picture");
    option("--runtime", arguments.runtime, "FOLDER", "Java runtime for Windows to copy to jre64");
    command.add_flag("--fast-start", request.fastStart,
                     "Let Java archive the classes at the end of the first run, so that later "
                     "starts are faster (Java 21 and newer)");
    command.add_flag("--no-runtime-archive", request.noRuntimeArchive,
                     "Do not make the archive of the runtime's own classes, for the same bytes "
                     "on every machine");
    option("--class-path", arguments.classPath, "JAR",
           "Additional jar, or folder of jars, copied to lib; may be repeated");
    option("--add", arguments.added, "PATH", "Additional file or folder; may be repeated");
    option("--main-class", request.mainClass, "CLASS", "Main class (default: from the manifest)");
    option("--version", request.version, "TEXT", "Version of the application");
    option("--title", request.title, "TEXT", "Application name shown to users");
    option("--vendor", request.vendor, "TEXT", "Company name");
    option("--description", request.description, "TEXT",
           "Description, shown by the task manager (default: the title)");
    option("--copyright", request.copyright, "TEXT", "Copyright notice (default: the vendor)");
    option("--min-version", request.minimumVersion, "VERSION",
           "Oldest Java version, or \"any\" (default: what the classes were compiled for)");
    option("--max-version", request.maximumVersion, "VERSION", "Newest Java version");
    option("--vm-parameters", request.vmParameters, "TEXT", "JVM options; may be repeated");
    option("--arguments", request.arguments, "TEXT", "Arguments that main always receives");
    command.add_flag("--single-instance", request.singleInstance,
                     "Hand the arguments of a second start to the running instance");
    command
        .add_option("--ends-with", arguments.endsWith,
                    "When the process ends: with its last thread, like java -jar (the default), on "
                    "System.exit (the default with --single-instance) or when main returns")
        ->check(CLI::IsMember({"threads", "exit", "main"}));
    command
        .add_option("--start-as", arguments.startsAs,
                    "How Java loads the main class (default: as a module if the jar's "
                    "module-info.class names it, with JavaFX as modules)")
        ->check(CLI::IsMember({"class-path", "module"}));
    command.add_flag("--single-file", request.singleFile,
                     "Embed the jar and the settings in the executable");
    command.add_flag("--keep-working-dir", request.keepsWorkingDirectory,
                     "Start in the caller's directory instead of the application's folder; Java "
                     "then also loads classes and resources from there");
    option("--set", arguments.settings, "SECTION/KEY=VALUE", "Another setting; may be repeated");
    option("--allow", request.allowedFindings, "ID",
           "Accept a finding of tarn check, which otherwise ends the command; may be repeated");
    option(
        "--set-string", arguments.strings, "ID=TEXT",
        "Another text for a message of the launcher, with \\n for a line break; may be repeated");
    option("--manifest", arguments.manifest, "FILE", "Manifest (XML) instead of the launcher's");
    command.add_flag("--admin", request.manifestChanges.requiresAdministrator,
                     "Start as administrator only (in the manifest)");
    command.add_flag("--utf8", request.manifestChanges.usesUtf8,
                     "UTF-8 as the 8-bit code page, from Windows 10 version 1903 on (in the "
                     "manifest)");
    option("--launcher", arguments.launcher, "FILE", "launcher.exe (default: the one beside tarn)");
    command.add_flag("--replace", request.replaces,
                     "Replace an existing folder of the same application");
    AddConfigOption(command, arguments.config);
}

}  // namespace

void AddWrapCommand(CLI::App& app, const Console& console, int& exitCode) {
    auto arguments = std::make_shared<Arguments>();
    CLI::App& command = *app.add_subcommand(
        "wrap", "Creates an application folder or a single executable from a jar");
    command.footer(kExamples);
    command.add_option("jar", arguments->jar, "The application's jar")->type_name("APP.jar");
    AddOptions(command, *arguments);
    command.callback([arguments, &command, &console, &exitCode] {
        RunWrap(command, *arguments, console);
        exitCode = kSuccess;
    });
}

}  // namespace tarn::tools
