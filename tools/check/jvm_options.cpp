#include "tools/check/jvm_options.h"

#include <algorithm>

#include "jvm/vm_parameters.h"
#include "runtime/search_policy.h"
#include "settings/keys.h"

namespace tarn::tools {
namespace {

constexpr char kUseClassPath[] = "put the jars into \"Class Path\" of [Class Path]";
constexpr char kRemove[] = "remove it";
constexpr char kNamedModules[] =
    "the main class is loaded from the class path: use \"Class Path\" and \"Main Class\"";

constexpr RefusedOption kRefused[] = {
    {L"-server", "write JVM Type=server instead"},
    {L"-client", "remove it: a client JVM is used where one exists"},
    {L"-d64", "remove it: the launcher is a 64-bit program"},
    {L"-d32", "remove it; use \"Pair Product\" for 32-bit runtimes"},
    {L"-cp", kUseClassPath},
    {L"-classpath", kUseClassPath},
    {L"--class-path", kUseClassPath},
    {L"--class-path=", kUseClassPath},
    {L"-jar", "put the jar into \"Class Path\", and its Main-Class into \"Main Class\""},
    {L"-p", kNamedModules},
    {L"-m", kNamedModules},
    {L"--module", kNamedModules},
    {L"--module=", kNamedModules},
    {L"-splash:", "write the picture's path into \"Splash Screen\" of [Display]"},
    {L"-version", kRemove},
    {L"-showversion", kRemove},
    {L"--version", kRemove},
    {L"--show-version", kRemove},
    {L"-fullversion", kRemove},
    {L"-XshowSettings", kRemove},
    {L"-XshowSettings:", kRemove},
    {L"-Xdiag", kRemove},
    {L"--dry-run", kRemove},
    {L"--list-modules", kRemove},
    {L"--source", kRemove},
    {L"-help", kRemove},
    {L"--help", kRemove},
    {L"-?", kRemove},
    {L"-h", kRemove},
    {L"-X", kRemove},
    {L"-noverify", "write -XX:-BytecodeVerificationRemote"},
    {L"-Xnoverify", "write -XX:-BytecodeVerificationRemote"},
    {L"-Xincgc", "remove it; the garbage collector G1 is incremental"},
    {L"-Xbootclasspath:",
     "the boot class path cannot be replaced; -Xbootclasspath/a: appends to it"},
    {L"-Xbootclasspath/p:", "write --patch-module=<module>=<jar>"},
    {L"-Djava.ext.dirs=", kUseClassPath},
    {L"-Djava.endorsed.dirs=", kUseClassPath},
};

constexpr AcceptedOption kAccepted[] = {
    {L"-D", true, 0},
    {L"-XX:", true, 0},
    {L"-Xms", true, 0},
    {L"-Xmx", true, 0},
    {L"-Xmn", true, 0},
    {L"-Xss", true, 0},
    {L"-Xint", false, 0},
    {L"-Xcomp", false, 0},
    {L"-Xmixed", false, 0},
    {L"-Xbatch", false, 0},
    {L"-Xrs", false, 0},
    {L"-Xnoclassgc", false, 0},
    {L"-Xlog", false, 0},
    {L"-Xlog:", true, 0},
    {L"-Xloggc:", true, 0},
    {L"-Xverify", false, 0},
    {L"-Xverify:", true, 0},
    {L"-Xcheck:jni", false, 0},
    {L"-Xdebug", false, 0},
    {L"-Xnoagent", false, 0},
    {L"-Xrun", true, 0},
    {L"-Xbootclasspath/a:", true, 0},
    {L"-Xinternalversion", false, 0},
    {L"-Xprof", false, 0},
    {L"-Xmaxjitcodesize", true, 0},
    {L"-Xshare:auto", false, 0},
    {L"-Xshare:on", false, 0},
    {L"-Xshare:off", false, 0},
    {L"-Xshare:dump", false, 0},
    {L"-ea", false, 0},
    {L"-ea:", true, 0},
    {L"-enableassertions", false, 0},
    {L"-enableassertions:", true, 0},
    {L"-da", false, 0},
    {L"-da:", true, 0},
    {L"-disableassertions", false, 0},
    {L"-disableassertions:", true, 0},
    {L"-esa", false, 0},
    {L"-enablesystemassertions", false, 0},
    {L"-dsa", false, 0},
    {L"-disablesystemassertions", false, 0},
    {L"-verbose", false, 0},
    {L"-verbose:", true, 0},
    {L"-javaagent:", true, 0},
    {L"-agentlib:", true, 0},
    {L"-agentpath:", true, 0},
    {L"--add-modules=", true, 0},
    {L"--add-exports=", true, 0},
    {L"--add-opens=", true, 0},
    {L"--add-reads=", true, 0},
    {L"--limit-modules=", true, 0},
    {L"--module-path=", true, 0},
    {L"--upgrade-module-path=", true, 0},
    {L"--patch-module=", true, 0},
    {L"--illegal-access=", true, 0},
    {L"--enable-preview", false, 0},
    {L"--enable-native-access=", true, 17},
    {L"--finalization=", true, 18},
    {L"--sun-misc-unsafe-memory-access=", true, 23},
    {L"--illegal-native-access=", true, 24},
};

bool IsPrefix(std::wstring_view listed) {
    return !listed.empty() && (listed.back() == L'=' || listed.back() == L':');
}

}  // namespace

const RefusedOption* FindRefused(std::wstring_view option) {
    const auto* const found =
        std::find_if(std::begin(kRefused), std::end(kRefused), [&](const RefusedOption& refused) {
            return IsPrefix(refused.option) ? option.starts_with(refused.option)
                                            : option == refused.option;
        });
    return found == std::end(kRefused) ? nullptr : found;
}

const AcceptedOption* FindAccepted(std::wstring_view option) {
    const auto* const found = std::find_if(
        std::begin(kAccepted), std::end(kAccepted), [&](const AcceptedOption& accepted) {
            return accepted.isPrefix ? option.starts_with(accepted.option)
                                     : option == accepted.option;
        });
    return found == std::end(kAccepted) ? nullptr : found;
}

std::span<const AcceptedOption> AcceptedOptions() {
    return kAccepted;
}

bool RequiresEqualsSign(std::wstring_view option) {
    return option.starts_with(L"--") &&
           std::any_of(
               std::begin(kAccepted), std::end(kAccepted), [&](const AcceptedOption& accepted) {
                   return accepted.option.size() == option.size() + 1 &&
                          accepted.option.ends_with(L'=') && accepted.option.starts_with(option);
               });
}

WrittenOptions JvmOptionsOf(const CheckedSettings& settings) {
    const Setting written =
        settings.Get(keys::kJavaRuntimeEnvironment, keys::kVirtualMachineParameters);
    WrittenOptions result{written.line, {}};
    for (std::wstring& token : SplitVmParameters(written.text)) {
        result.options.push_back(RemoveQuotes(std::move(token)));
    }
    return result;
}

bool HasVariable(std::wstring_view text) {
    const std::size_t open = text.find(L'%');
    if (open == std::wstring_view::npos) return false;
    const std::size_t close = text.find(L'%', open + 1);
    return close != std::wstring_view::npos && close > open + 1;
}

bool AdmitsHotSpot(const CheckedSettings& settings) {
    RuntimeSearchPolicy policy;
    ApplyVmProvider(settings.Get(keys::kJavaRuntimeEnvironment, keys::kVmProvider).text, policy);
    return policy.sunAllowed;
}

}  // namespace tarn::tools
