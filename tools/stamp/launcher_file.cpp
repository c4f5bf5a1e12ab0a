#include "tools/stamp/launcher_file.h"

#include "resources/ids.h"
#include "tools/common/failure.h"
#include "tools/image/executable.h"
#include "tools/image/string_table.h"

namespace tarn::tools {
namespace {

constexpr std::uint16_t kMessages[] = {IDS_JRE_NOT_FOUND, IDS_NO_MAIN_CLASS, IDS_REASON_INVALID};

}  // namespace

void CheckIsLauncher(ByteSpan executable) {
    const ResourceTree resources = Executable(executable).Resources();
    for (const std::uint16_t id : kMessages) {
        if (StringOf(resources, id).empty()) {
            throw Failure("is not a Tarn launcher; specify Tarn's launcher.exe with --launcher");
        }
    }
}

bool IsLauncher(ByteSpan executable) {
    try {
        CheckIsLauncher(executable);
        return true;
    } catch (const Failure&) {
        return false;
    }
}

}  // namespace tarn::tools
