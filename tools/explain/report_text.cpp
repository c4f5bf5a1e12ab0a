#include "tools/explain/report_text.h"

#include <algorithm>

#include "tools/explain/text_page.h"
#include "tools/explain/verdict_text.h"

namespace tarn::tools {
namespace {

void PrintOutcome(const LaunchReport& report, TextPage& page) {
    page.Heading(report.program.path);
    const OutcomeReport& outcome = report.outcome;
    const bool good = outcome.kind == "starts-java" || outcome.kind == "starts-paired-program" ||
                      outcome.kind == "hands-over";
    page.Line(page.Styled(good ? Style::Good : Style::Error, outcome.summary));
    if (outcome.exitCode) page.Value("exit code", std::to_string(*outcome.exitCode));
    for (const MessageReport& message : report.messages) {
        const bool isDialog = outcome.kind == "asks-for-runtime" && !message.launchGoesOn;
        page.Line(isDialog               ? "The user sees the dialog:"
                  : message.launchGoesOn ? "The user sees, before the launch continues:"
                                         : "The user sees:");
        page.Line(message.text, 2);
    }
}

void PrintProgram(const ProgramReport& program, TextPage& page) {
    const auto file = [&page](const char* name, const std::string& path, bool exists) {
        page.Value(name, path.empty() ? "none" : path + (exists ? "" : " (not found)"));
    };
    page.Heading("Program");
    page.Value("command line", program.commandLine);
    file("settings", program.settingsFile, program.settingsFileExists);
    file("user's own", program.perUserFile, program.perUserFileExists);
    page.Value("built in", program.hasBuiltInSettings ? "settings text" : "none");
}

void PrintSettings(const std::vector<SettingReport>& settings, TextPage& page) {
    page.Heading("Settings");
    std::string section;
    std::string notSet;
    for (const SettingReport& setting : settings) {
        if (setting.layer == "none") {
            notSet += (notSet.empty() ? "" : ", ") + setting.key;
            // A flag that is not set is off.
            if (!setting.meaning.empty() && setting.meaning != "off") {
                notSet += " (" + setting.meaning + ')';
            }
            continue;
        }
        if (setting.section != section) page.Line('[' + setting.section + ']');
        section = setting.section;
        std::string about = setting.layer;
        if (!setting.meaning.empty()) about += ": " + setting.meaning;
        page.Line(
            setting.key + " = " + setting.value + "  " + page.Styled(Style::Dim, '(' + about + ')'),
            2);
    }
    if (!notSet.empty()) page.Line(page.Styled(Style::Dim, "not set: " + notSet));
}

void PrintInstance(const InstanceReport& instance, TextPage& page) {
    page.Heading("Single instance");
    if (instance.state == "off") {
        page.Line("off: " + instance.reason);
        return;
    }
    page.Value("shared block", instance.blockName);
    page.Value("message", instance.messageName);
    page.Value("ready event", instance.eventName);
    page.Value("arguments", std::to_string(instance.argumentBytes) + " of " +
                                std::to_string(instance.argumentRoom) + " bytes");
    if (instance.state == "first") {
        page.Line("no instance runs");
    } else if (instance.state == "second") {
        page.Line("an instance runs: process " + std::to_string(instance.processId) +
                  ", listening thread " + std::to_string(instance.listenerThreadId));
    } else {
        page.Line("not used: " + instance.reason);
    }
}

std::string Styled(const TextPage& page, std::string_view verdict, std::string_view sentence) {
    const bool good = verdict == "taken" || verdict == "chosen";
    return page.Styled(good ? Style::Good : Style::Plain, sentence);
}

void PrintSubkey(const SubkeyLine& subkey, TextPage& page) {
    std::string line = subkey.name + " (" + subkey.version +
                       "): " + Styled(page, subkey.verdict, SentenceFor(subkey.verdict));
    if (!subkey.reason.empty()) line += "; " + std::string(SentenceFor(subkey.reason));
    page.Line(line, 3);
    if (!subkey.home.empty()) page.Line(page.Styled(Style::Dim, subkey.home), 4);
    if (!subkey.isCandidate) return;
    std::string about = "place " + std::to_string(subkey.rank + 1);
    if (subkey.server) about += ", server JVM";
    if (subkey.favored) about += ", of the favoured kind and provider";
    page.Line(page.Styled(Style::Dim, about), 4);
}

void PrintSource(const SourceLine& source, TextPage& page) {
    page.Line(std::string(SentenceFor(source.source)) + ": " +
              Styled(page, source.verdict, VerdictSentence(source)));
    if (!source.home.empty()) {
        page.Line(page.Styled(Style::Dim, source.home), 2);
    } else if (source.source == "shipped" && source.verdict != "no-launcher-folder") {
        page.Line(page.Styled(Style::Dim, "none found; searched below the current directory"), 2);
    }
    if (source.preferred) page.Line("by the preferred version \"" + *source.preferred + '"', 2);
    for (const RootLine& root : source.roots) {
        page.Line(root.key + ": " + std::string(SentenceFor(root.verdict)), 2);
        for (const SubkeyLine& subkey : root.subkeys) PrintSubkey(subkey, page);
    }
    for (const SubkeyLine& candidate : source.candidates) PrintSubkey(candidate, page);
}

void PrintRuntime(const RuntimeReport& runtime, TextPage& page) {
    page.Heading("Search for a Java runtime");
    for (const SourceLine& source : runtime.sources) PrintSource(source, page);
    page.Heading("Java runtime");
    if (!runtime.isFound) {
        page.Line("none found");
        return;
    }
    page.Value("jvm.dll", runtime.jvmLibrary);
    page.Value("home", runtime.home.empty() ? "(the current directory)" : runtime.home);
    page.Value("machine",
               runtime.machine + (runtime.isForPairedLauncher ? ", for the paired program" : ""));
    const auto version = [&page](const char* from, const std::string& text) {
        if (!text.empty()) page.Value("version", text + " (" + from + ')');
    };
    version("registry", runtime.registeredVersion);
    version("file \"release\"", runtime.releaseVersion);
    version("jvm.dll", runtime.libraryVersion);
}

void PrintPaired(const PairedReport& paired, TextPage& page) {
    page.Heading("Paired program");
    page.Value("program", paired.program + (paired.programExists ? "" : " (not found)"));
    page.Value("waits for it", YesOrNo(paired.waits));
}

void PrintEnvironment(const EnvironmentReport& environment, TextPage& page) {
    page.Heading("Environment");
    page.Value("directory", environment.directory);
    page.Value("TARN_JVM_PATH", environment.jvmPath);
    page.Value("TARN_JVM_HOME", environment.jvmHome);
    page.Value("Path", environment.path);
}

void PrintSplash(const SplashReport& splash, TextPage& page) {
    page.Heading("Splash");
    if (splash.kind == "none") {
        page.Line("none: \"Splash Screen\" is not set");
        return;
    }
    if (splash.kind == "suppressed") {
        page.Line("none: suppressed by an argument");
        return;
    }
    page.Value("picture", splash.image + (splash.imageExists ? "" : " (not found)"));
    page.Value("shown by", splash.kind == "native" ? "the Java runtime" : "the launcher");
    if (splash.kind == "own") page.Value("shadow", YesOrNo(splash.shadow));
    if (splash.nativeFailure == "no-library") {
        page.Line("not by the runtime: it has no splashscreen.dll");
    } else if (!splash.nativeFailure.empty()) {
        page.Line("not by the runtime: its splashscreen.dll cannot be used");
    }
}

void PrintOptionVariable(const OptionVariableReport& variable, TextPage& page) {
    page.Value(variable.name, variable.value);
    page.Line(variable.effect == "read-first"
                  ? "read by the JVM before the options above, which override it"
              : variable.effect == "read-last"
                  ? "read by the JVM after the options above, which it overrides"
                  : "ignored: only the program java.exe reads it",
              2);
}

std::string StackText(const JvmReport& jvm) {
    if (jvm.stackSizeFrom == "executable") return "the executable's own default";
    return SizeText(jvm.stackSize) +
           (jvm.stackSizeFrom == "option" ? ", from \"-Xss\"" : ", the runtime's default");
}

void PrintMemory(const JvmReport& jvm, TextPage& page) {
    page.Heading("Memory");
    page.Value("stack of main", StackText(jvm));
    page.Value("physical", SizeText(jvm.physicalMemory));
    page.Value("address space", SizeText(jvm.availableAddressSpace) + " available");
    for (const PercentageReport& percentage : jvm.percentages) {
        page.Line(percentage.written + " becomes " + percentage.option);
    }
}

void PrintJvm(const JvmReport& jvm, TextPage& page) {
    page.Heading("Java");
    page.Value("main class", jvm.mainClass);
    for (const std::string& option : jvm.options) page.Value("option", option);
    for (const OptionVariableReport& variable : jvm.optionVariables) {
        PrintOptionVariable(variable, page);
    }
    if (!jvm.classPathDirectory.empty()) {
        page.Value("classes also in", jvm.classPathDirectory + (jvm.classPathDirectoryIsOwn
                                                                    ? " (the executable's folder)"
                                                                    : " (the current directory)"));
        if (!jvm.classPathDirectoryIsOwn) {
            page.Line(
                "set \"Override WorkingDir\" to Yes to search the executable's folder instead");
        }
    }
    for (const std::string& argument : jvm.arguments) page.Value("argument", argument);
    for (const OutputReport& output : jvm.outputs) {
        std::string text = output.file;
        if (output.append) text += " (appended)";
        if (output.hasPicture) text += "  from " + output.name;
        page.Value("standard " + output.stream, text);
    }
    if (!jvm.archive.empty()) {
        page.Value("class archive",
                   jvm.archive + (jvm.readsArchive ? "" : " (written when the run ends)"));
    }
    // Java's own message when it cannot load the main class, for example.
    const bool keepsErrors =
        std::any_of(jvm.outputs.begin(), jvm.outputs.end(),
                    [](const OutputReport& output) { return output.stream == "error"; });
    page.Line(keepsErrors ? "if no window appears, see what Java wrote to the standard error's file"
                          : "if no window appears, set \"Error File\" to see what Java writes");
    page.Value("uncaught error", jvm.showsUncaughtException ? "shown in a dialog" : "not shown");
    if (jvm.destroysJvm) page.Line("waits for the application's threads after main (service)");
    if (jvm.staysAfterMain) page.Line("stays after main until System.exit (\"VM Provider\")");
    PrintMemory(jvm, page);
}

}  // namespace

std::string ReportText(const LaunchReport& report, const Console& console) {
    TextPage page(console);
    PrintOutcome(report, page);
    PrintProgram(report.program, page);
    if (!report.settings.empty()) PrintSettings(report.settings, page);
    if (report.instance) PrintInstance(*report.instance, page);
    if (report.runtime) PrintRuntime(*report.runtime, page);
    if (report.paired) PrintPaired(*report.paired, page);
    if (report.environment) PrintEnvironment(*report.environment, page);
    if (report.splash) PrintSplash(*report.splash, page);
    if (report.jvm) PrintJvm(*report.jvm, page);
    return page.Take();
}

}  // namespace tarn::tools
