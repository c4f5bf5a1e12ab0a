// What a launch would do, as plain data in UTF-8. Keywords and field names are a published
// contract, listed in docs/user/explain.md.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarn::tools {

struct ProgramReport {
    std::string path;
    /// Empty when it cannot be derived from the path.
    std::string settingsFile;
    bool settingsFileExists = false;
    std::string perUserFile;
    bool perUserFileExists = false;
    bool hasBuiltInSettings = false;
    std::string commandLine;
    /// The command line as the launcher splits it, without "Cmd".
    std::vector<std::string> arguments;
};

struct SettingReport {
    std::string section;
    std::string key;
    /// The effective value of all layers.
    std::string value;
    /// The layer of the value: "file", "additive", "built-in", "built-in+additive", "per-user",
    /// "none".
    std::string layer;
    /// How the launch interprets the value, unless it uses the text itself.
    std::string meaning;
};

struct InstanceReport {
    /// "off", "unusable", "first", "second".
    std::string state = "off";
    std::string reason;
    std::string blockName;
    std::string messageName;
    std::string eventName;
    /// Of the running instance; 0 without one.
    std::uint32_t processId = 0;
    std::uint32_t listenerThreadId = 0;
    /// Bytes that the arguments take in the shared block, and its capacity.
    std::size_t argumentBytes = 0;
    std::size_t argumentRoom = 0;
};

struct SubkeyLine {
    std::string name;
    std::string version;
    std::string home;
    /// The following fields are for candidates only.
    bool isCandidate = false;
    bool server = false;
    bool favored = false;
    std::size_t rank = 0;
    std::string verdict;
    std::string reason;
};

struct RootLine {
    std::string key;
    std::string verdict;
    std::vector<SubkeyLine> subkeys;
};

struct SourceLine {
    std::string source;
    std::string verdict;
    std::string home;
    /// The preferred version that decided, if any.
    std::optional<std::string> preferred;
    std::vector<RootLine> roots;
    /// For a further source: its runtimes, named by their key, folder or variable.
    std::vector<SubkeyLine> candidates = {};
};

struct RuntimeReport {
    bool isFound = false;
    std::vector<SourceLine> sources;
    std::string home;
    std::string jvmLibrary;
    /// From the registry; empty for other sources.
    std::string registeredVersion;
    /// From the runtime's file `release`; empty when there is none.
    std::string releaseVersion;
    /// From the version information of `jvm.dll`; empty when it has none.
    std::string libraryVersion;
    /// "x64", "x86", "arm64" or "unknown".
    std::string machine;
    bool isForPairedLauncher = false;
};

struct PairedReport {
    std::string program;
    bool programExists = false;
    bool waits = false;
};

struct EnvironmentReport {
    std::string directory;
    std::string path;
    std::string jvmPath;
    std::string jvmHome;
};

struct SplashReport {
    /// "none", "suppressed", "own", "native".
    std::string kind = "none";
    std::string image;
    bool imageExists = false;
    bool shadow = false;
    /// Why the launcher's own window is used although the native splash is preferred: "no-library",
    /// "unusable".
    std::string nativeFailure;
};

/// An environment variable with JVM options that is set.
struct OptionVariableReport {
    std::string name;
    std::string value;
    /// What the JVM of a launch does with it: "read-first" (before its options, which override it),
    /// "read-last" (after them, so that it overrides them) or "ignored".
    std::string effect;
};

struct PercentageReport {
    /// As written in the settings, and as passed to the JVM.
    std::string written;
    std::string option;
};

struct OutputReport {
    /// "output" or "error".
    std::string stream;
    /// With its time stamp format.
    std::string name;
    /// As it would be at the time of the report.
    std::string file;
    bool hasPicture = false;
    bool append = false;
};

struct JvmReport {
    std::string mainClass;
    /// The directory that the class path's empty element stands for; empty without such an element.
    std::string classPathDirectory;
    bool classPathDirectoryIsOwn = false;  ///< whether that is the executable's folder
    /// In order, as the JVM decodes their bytes. The hooks "abort" and "exit" follow.
    std::vector<std::string> options;
    std::vector<OptionVariableReport> optionVariables;
    /// The arguments of `main`: the command line's and those of "Cmd".
    std::vector<std::string> arguments;
    std::uint64_t stackSize = 0;
    /// "option", "runtime" or "executable".
    std::string stackSizeFrom;
    std::uint64_t physicalMemory = 0;
    std::uint64_t availableAddressSpace = 0;
    std::vector<PercentageReport> percentages;
    std::vector<OutputReport> outputs;
    /// The archive of "Fast Start" and whether the launch reads it; otherwise it is written when
    /// the run ends. Empty without one.
    std::string archive;
    bool readsArchive = false;
    bool showsUncaughtException = false;
    bool destroysJvm = false;
    bool staysAfterMain = false;
};

struct MessageReport {
    std::string text;
    /// Whether the launch continues after the user closes the message.
    bool launchGoesOn = false;
};

struct OutcomeReport {
    /// "starts-java", "fails", "asks-for-runtime", "starts-paired-program" or "hands-over".
    std::string kind = "fails";
    /// Empty when Java, another program or the user decides it.
    std::optional<std::int32_t> exitCode;
    /// One sentence.
    std::string summary;
};

/// Parts that the launch does not reach are absent.
struct LaunchReport {
    OutcomeReport outcome;
    std::vector<MessageReport> messages;
    ProgramReport program;
    std::vector<SettingReport> settings;
    std::optional<InstanceReport> instance;
    std::optional<RuntimeReport> runtime;
    std::optional<PairedReport> paired;
    std::optional<EnvironmentReport> environment;
    std::optional<SplashReport> splash;
    std::optional<JvmReport> jvm;
};

}  // namespace tarn::tools
