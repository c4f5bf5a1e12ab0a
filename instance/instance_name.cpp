#include "instance/instance_name.h"

#include "base/text.h"

namespace tarn {

std::wstring InstanceName(std::wstring_view executablePath) {
    return ReplaceAll(executablePath, L'\\', L'_');
}

std::wstring ReadyEventName(std::wstring_view instanceName) {
    return Concat({instanceName, L"_upr_evt"});
}

}  // namespace tarn
