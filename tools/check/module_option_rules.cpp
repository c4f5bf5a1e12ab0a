#include "base/text.h"
#include "tools/check/jvm_options.h"
#include "tools/check/rules.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

struct ModuleOption {
    std::wstring_view start;
    /// Whether a package follows the module: "java.base/java.lang".
    bool hasPackage;
    std::string_view example;
};

constexpr ModuleOption kOptions[] = {
    {L"--add-opens=", true, "--add-opens=java.base/java.lang=ALL-UNNAMED"},
    {L"--add-exports=", true, "--add-exports=java.base/sun.nio.ch=ALL-UNNAMED"},
    {L"--add-reads=", false, "--add-reads=java.base=ALL-UNNAMED"},
    {L"--patch-module=", false, "--patch-module=java.base=patch.jar"},
};

// Module and package, with exactly one slash between them where the option has a package.
bool IsSourceComplete(std::wstring_view source, bool hasPackage) {
    const std::size_t slash = source.find(L'/');
    if (!hasPackage) return !source.empty() && slash == source.npos;
    return slash != source.npos && slash != 0 && slash + 1 < source.size() &&
           source.find(L'/', slash + 1) == source.npos;
}

// The module name that stands for the class path, in a spelling that is another module.
bool IsMisspeltUnnamed(std::wstring_view target) {
    return target != L"ALL-UNNAMED" &&
           EqualsIgnoringCase(ReplaceAll(target, L'_', L'-'), L"ALL-UNNAMED");
}

void CheckOption(std::wstring_view option, const ModuleOption& kind, std::size_t line,
                 Findings& findings) {
    const std::wstring_view value = option.substr(kind.start.size());
    const std::size_t equals = value.find(L'=');
    const std::wstring_view target =
        equals == value.npos ? std::wstring_view() : value.substr(equals + 1);
    if (target.empty() || !IsSourceComplete(value.substr(0, equals), kind.hasPackage)) {
        findings.Error("module-option", line,
                       Quoted(option) + " is malformed: the JVM refuses it, and the launch ends",
                       "write it like " + std::string(kind.example));
        return;
    }
    if (kind.start == L"--patch-module=") return;
    for (const std::wstring& module : Split(target, L',')) {
        if (!IsMisspeltUnnamed(module)) continue;
        findings.Warning("module-option", line,
                         Quoted(option) + " names a module " + Quoted(module) +
                             ", which does not exist: the option has no effect",
                         "write ALL-UNNAMED for the classes of the class path");
    }
}

}  // namespace

void CheckModuleOptions(const CheckedSettings& settings, Findings& findings) {
    if (!AdmitsHotSpot(settings)) return;
    const WrittenOptions written = JvmOptionsOf(settings);
    for (const std::wstring& option : written.options) {
        if (HasVariable(option)) continue;
        for (const ModuleOption& kind : kOptions) {
            if (option.starts_with(kind.start)) CheckOption(option, kind, written.line, findings);
        }
    }
}

}  // namespace tarn::tools
