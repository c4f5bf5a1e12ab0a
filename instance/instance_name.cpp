#include "instance/instance_name.h"

#include "base/text.h"

namespace tarn {

std::wstring InstanceName(std::wstring_view executablePath) {
    return ReplaceEach(executablePath, L'\\', L'_');
}

std::wstring ReadyEventName(std::wstring_view instanceName) {
    std::wstring name(instanceName);
    name += L"_upr_evt";
    return name;
}

}  // namespace tarn
