#include "tools/check/jvm_options_of.h"

#include "jvm/vm_parameters.h"
#include "runtime/search_policy.h"
#include "settings/keys.h"

namespace tarn::tools {

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

bool HasUsualJvm(const CheckedSettings& settings) {
    RuntimeSearchPolicy policy;
    ApplyVmProvider(settings.Get(keys::kJavaRuntimeEnvironment, keys::kVmProvider).text, policy);
    return policy.sunAllowed;
}

}  // namespace tarn::tools
