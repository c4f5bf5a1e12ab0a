// What a launch would do, as plain facts in UTF-8. Words that stand for one of a few cases are the
// ones that docs/user/explain.md lists; support tools read them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarn::tools {

struct ProgramReport {
    std::string path;
    /// Empty when the path does not lead to one.
    std::string settingsFile;
    bool settingsFileExists = false;
    std::string perUserFile;
    bool perUserFileExists = false;
    bool hasBuiltInSettings = false;
    std::string commandLine;
    /// Of the command line alone, as the launcher splits it.
    std::vector<std::string> arguments;
};

struct SettingReport {
    std::string section;
    std::string key;
    /// As the launch gets it, all layers taken together.
    std::string value;
    /// Where it comes from: "file", "additive", "built-in", "built-in+additive", "per-user",
    /// "none".
    std::string layer;
    /// What the launch makes of it, where that is not the text as it stands.
    std::string meaning;
};

struct InstanceReport {
    /// "off", "unusable", "first", "second".
    std::string state = "off";
    std::string reason;
    std::string blockName;
    std::string messageName;
    std::string eventName;
    /// Of the instance that runs; 0 when there is none.
    std::uint32_t processId = 0;
    std::uint32_t listenerThreadId = 0;
    /// Room that the arguments take in the shared block, in bytes, and how much there is.
    std::size_t argumentBytes = 0;
    std::size_t argumentRoom = 0;
};

struct SubkeyLine {
    std::string name;
    std::string version;
    std::string home;
    /// For a candidate only.
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
    /// The preferred version that chose, if one did.
    std::optional<std::string> preferred;
    std::vector<RootLine> roots;
};

struct RuntimeReport {
    bool isFound = false;
    std::vector<SourceLine> sources;
    std::string home;
    std::string jvmLibrary;
    /// From the registry; empty when it did not come from there.
    std::string registeredVersion;
    /// What the runtime's own file `release` says; empty when there is none.
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
    /// For the own window although the runtime's library was wanted: "no-library", "unusable".
    std::string nativeFailure;
};

struct PercentageReport {
    /// As written in the settings, and as the JVM gets it.
    std::string written;
    std::string option;
};

struct OutputReport {
    /// "output" or "error".
    std::string stream;
    /// With its time-stamp picture.
    std::string name;
    /// As it would be at the moment of the report.
    std::string file;
    bool hasPicture = false;
    bool append = false;
};

struct JvmReport {
    std::string mainClass;
    /// The directory that the class path's empty element stands for; empty without such an element.
    std::string classPathDirectory;
    bool classPathDirectoryIsOwn = false;  ///< whether that is the executable's folder
    /// In their order, as the JVM reads their bytes. "abort" and "exit" follow them.
    std::vector<std::string> options;
    /// For `main`: the launch's and those of "Cmd".
    std::vector<std::string> arguments;
    std::uint64_t stackSize = 0;
    /// "option", "runtime" or "executable".
    std::string stackSizeFrom;
    std::uint64_t physicalMemory = 0;
    std::uint64_t availableAddressSpace = 0;
    std::vector<PercentageReport> percentages;
    std::vector<OutputReport> outputs;
    bool showsUncaughtException = false;
    bool destroysJvm = false;
    bool staysAfterMain = false;
};

struct MessageReport {
    std::string text;
    /// The launch goes on once the user has closed it.
    bool launchGoesOn = false;
};

struct OutcomeReport {
    /// "starts-java", "fails", "asks-for-runtime", "starts-paired-program" or "hands-over".
    std::string kind = "fails";
    /// Empty where it is decided elsewhere.
    std::optional<std::int32_t> exitCode;
    /// One sentence.
    std::string summary;
};

/// What was not reached before the launch ends is absent.
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
