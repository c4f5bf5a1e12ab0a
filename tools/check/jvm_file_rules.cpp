#include "base/paths.h"
#include "base/text.h"
#include "settings/keys.h"
#include "tools/check/class_path_on_disk.h"
#include "tools/check/jvm_options.h"
#include "tools/check/rules.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

constexpr std::wstring_view kAgent = L"-javaagent:";
constexpr std::wstring_view kModulePaths[] = {L"--module-path=", L"--upgrade-module-path="};

// The JVM resolves relative paths against the current directory.
class FileChecker {
  public:
    FileChecker(const CheckedSettings& settings, std::size_t line, Findings& findings)
        : settings_(settings),
          line_(line),
          findings_(findings),
          isOwnDirectory_(settings.IsOn(keys::kApplication, keys::kOverrideWorkingDir)) {}

    void CheckAgent(std::wstring_view option) {
        // The agent's own options follow the first "=".
        const std::wstring file(option.substr(0, option.find(L'=')).substr(kAgent.size()));
        if (HasVariable(option)) return;
        if (IsMissing(file)) {
            const std::string message = "the agent " + Quoted(file) + " does not exist";
            if (isOwnDirectory_ || IsAbsolutePath(file)) {
                findings_.Error("java-agent", line_, message + ": the JVM refuses to start",
                                "add the file, or remove the option");
            } else {
                findings_.Warning("java-agent", line_, message + " beside the settings file",
                                  "add the file, and write Override WorkingDir=Yes");
            }
        } else if (IsRelative(file)) {
            CheckDirectory("the path of the agent " + Quoted(file));
        }
    }

    void CheckModulePath(std::wstring_view value) {
        bool hasRelative = false;
        for (const std::wstring& entry : Split(value, L';')) {
            if (entry.empty() || HasVariable(entry)) continue;
            if (!IsMissing(entry)) {
                hasRelative = hasRelative || IsRelative(entry);
                continue;
            }
            findings_.Warning("module-path", line_,
                              "the module path entry " + Quoted(entry) +
                                  " does not exist, which the JVM ignores silently",
                              entry.find(L':', 2) == std::wstring::npos
                                  ? "add the folder or jar, or remove the entry"
                                  : "separate entries with \";\", not with \":\"");
        }
        if (hasRelative) CheckDirectory("the module path");
    }

  private:
    static bool IsRelative(std::wstring_view path) {
        return !IsAbsolutePath(path) && !path.starts_with(L'\\') && !path.starts_with(L'/');
    }

    // Certainly missing: false for paths that only the user's machine can resolve.
    bool IsMissing(const std::wstring& path) const {
        if (!settings_.checksFiles() || !IsResolvableHere(path)) return false;
        if (IsRelative(path)) return FindAsWindows(settings_.folder(), path).empty();
        std::error_code error;
        return IsAbsolutePath(path) && !std::filesystem::exists(PathOf(Utf8Of(path)), error);
    }

    void CheckDirectory(const std::string& what) {
        if (isOwnDirectory_) return;
        findings_.Warning("working-directory", line_,
                          what +
                              " is relative to the current directory, which is wherever the user "
                              "starts the application",
                          "write Override WorkingDir=Yes to make it the executable's folder");
    }

    const CheckedSettings& settings_;
    std::size_t line_;
    Findings& findings_;
    bool isOwnDirectory_;
};

}  // namespace

void CheckJvmFiles(const CheckedSettings& settings, Findings& findings) {
    const WrittenOptions written = JvmOptionsOf(settings);
    FileChecker checker(settings, written.line, findings);
    for (const std::wstring& option : written.options) {
        if (option.starts_with(kAgent)) checker.CheckAgent(option);
        for (const std::wstring_view start : kModulePaths) {
            if (option.starts_with(start)) checker.CheckModulePath(option.substr(start.size()));
        }
    }
}

}  // namespace tarn::tools
