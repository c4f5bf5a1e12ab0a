#include "tools/explain/predict_launch.h"

#include "base/arguments.h"
#include "base/paths.h"
#include "base/text.h"
#include "base/windows.h"
#include "jvm/jvm_loader.h"
#include "jvm/jvm_options.h"
#include "jvm/native_paths.h"
#include "resources/ids.h"
#include "settings/embedded_settings.h"
#include "settings/settings.h"
#include "settings/settings_paths.h"
#include "tools/common/text_encoding.h"
#include "tools/explain/captured_messages.h"
#include "tools/explain/instance_report.h"
#include "tools/explain/jvm_report.h"
#include "tools/explain/runtime_report.h"
#include "tools/explain/settings_report.h"
#include "tools/explain/splash_report.h"
#include "ui/dialogs/jre_not_found_dialog.h"

namespace tarn::tools {
namespace {

constexpr std::int32_t kFailedStart = -1;

std::wstring CurrentDirectory() {
    const DWORD size = GetCurrentDirectoryW(0, nullptr);
    std::wstring folder(size, L'\0');
    folder.resize(GetCurrentDirectoryW(size, folder.data()));
    return folder;
}

/// The steps of one launch, in the launcher's order. Each returns false when it ends the launch.
class LaunchPrediction {
  public:
    LaunchPrediction(const ProgramFile& program, std::wstring_view argumentText)
        : path_(program.path()) {
        std::wstring commandLine = L'"' + path_ + L'"';
        if (!argumentText.empty()) commandLine += L' ' + std::wstring(argumentText);
        arguments_ = ArgumentsOf(commandLine);
        report_.program.path = Utf8Of(path_);
        report_.program.commandLine = Utf8Of(commandLine);
        for (const std::wstring& argument : arguments_) {
            report_.program.arguments.push_back(Utf8Of(argument));
        }
    }

    LaunchReport Run() {
        if (ReadAllSettings() && LookForInstance() && EnterFolder() && SearchRuntime() &&
            LoadLibraries()) {
            BuildJava();
        }
        return std::move(report_);
    }

  private:
    bool End(const char* kind, std::optional<std::int32_t> exitCode, std::string summary) {
        report_.outcome = {kind, exitCode, std::move(summary)};
        return false;
    }

    /// Moves the messages of the last step into the report.
    bool TakeMessages(bool launchGoesOn) {
        bool any = false;
        for (std::string& text : CapturedMessages::Take()) {
            report_.messages.push_back({std::move(text), launchGoesOn});
            any = true;
        }
        return any;
    }

    bool Fail(const char* why) {
        const bool isShown = TakeMessages(false);
        return End("fails", kFailedStart, isShown ? why : std::string(why) + " Nothing is shown.");
    }

    bool ReadAllSettings() {
        const bool done = ReadSettings(errors_, settings_);
        ProgramReport& program = report_.program;
        if (const auto file = SettingsPathOf(path_)) {
            program.settingsFile = Utf8Of(*file);
            program.settingsFileExists = FileExists(*file);
        }
        const std::wstring perUser = PerUserSettingsPath(settings_, path_, false);
        program.perUserFile = Utf8Of(perUser);
        program.perUserFileExists = FileExists(perUser);
        program.hasBuiltInSettings = !LoadEmbeddedText().empty();
        report_.settings = ReportSettings(path_, settings_);
        return done || Fail("The settings cannot be used.");
    }

    bool LookForInstance() {
        report_.instance = ReportInstance(path_, settings_, arguments_);
        if (report_.instance->state != "second") return true;
        report_.outcome = OutcomeOfSecond(*report_.instance);
        return false;
    }

    bool EnterFolder() const {
        if (settings_.overrideWorkingDir) {
            SetCurrentDirectoryW(std::wstring(CutAtLast(path_, L'\\')).c_str());
        }
        return true;
    }

    bool SearchRuntime() {
        report_.runtime = ReportRuntime(settings_, choice_);
        if (!report_.runtime->isFound) return AskForRuntime();
        if (!choice_.pairedLaunch) return true;
        PairedReport paired;
        paired.program = Utf8Of(settings_.pairProduct);
        paired.programExists = FileExists(settings_.pairProduct);
        paired.waits = settings_.pairReturnCode;
        const bool codeIsKnown = !paired.waits || !paired.programExists;
        report_.paired = std::move(paired);
        return End("starts-paired-program",
                   codeIsKnown ? std::optional<std::int32_t>(0) : std::nullopt,
                   "Starts the paired program for the 32-bit runtime.");
    }

    bool AskForRuntime() {
        const HRSRC dialog = FindResourceW(ProgramModule(), MAKEINTRESOURCEW(IDD_JRE_NOT_FOUND),
                                           MAKEINTRESOURCEW(5));  // RT_DIALOG
        if (dialog == nullptr) return Fail("No runtime was found, and the dialog is missing.");
        report_.messages.push_back({Utf8Of(JreNotFoundMessage(settings_.policy)), false});
        // The outcome depends on the user; cancelling the dialog fails the launch.
        return End("asks-for-runtime", std::nullopt,
                   "No runtime was found: the user is asked for one.");
    }

    bool LoadLibraries() {
        libraryPathOption_ = PrepareNativePaths(settings_, choice_.jvmLibraryPath);
        report_.environment = EnvironmentReport{
            Utf8Of(CurrentDirectory()), EnvironmentVariable(L"Path"),
            EnvironmentVariable(L"TARN_JVM_PATH"), EnvironmentVariable(L"TARN_JVM_HOME")};
        report_.splash = ReportSplash(arguments_, choice_.jvmLibraryPath);
        if (!LoadJvmLibrary(errors_, choice_.jvmLibraryPath, entryPoints_)) {
            return Fail("The runtime's jvm.dll cannot be used.");
        }
        return true;
    }

    void BuildJava() {
        const JvmOptions options =
            BuildOptions(LaunchKind::Predicted, errors_, choice_.jvmLibraryPath,
                         std::move(libraryPathOption_), std::move(arguments_));
        TakeMessages(true);
        const std::uint64_t defaultStackSize =
            options.javaThreadStackSize == 0 ? DefaultStackSize(entryPoints_) : 0;
        report_.jvm = ReportJvm(path_, settings_, options, defaultStackSize);
        if (HasEmptyClassPathElement(report_.jvm->options)) {
            const std::wstring directory = CurrentDirectory();
            report_.jvm->classPathDirectory = Utf8Of(directory);
            report_.jvm->classPathDirectoryIsOwn =
                EqualsIgnoringCase(EnsureTrailing(directory, L'\\'), FolderOf(path_));
        }
        End("starts-java", std::nullopt, "Creates the JVM and calls main.");
    }

    const std::wstring path_;
    std::vector<std::wstring> arguments_;
    LaunchReport report_;
    Settings settings_;
    RuntimeChoice choice_;
    std::string libraryPathOption_;
    JvmEntryPoints entryPoints_;
    /// Without an owner window: the messages are captured.
    const ErrorReporter errors_;
};

}  // namespace

LaunchReport PredictLaunch(const ProgramFile& program, std::wstring_view argumentText) {
    const CapturedMessages messages;
    // Like the launcher's first step: options are converted to the thread's code page.
    SetThreadLocale(GetSystemDefaultLCID());
    // A library that cannot be loaded is reported here, not in a message box of the system.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    return LaunchPrediction(program, argumentText).Run();
}

}  // namespace tarn::tools
