#include "ui/open_with_shell.h"

#include <shellapi.h>

#include "base/dynamic_library.h"
#include "ui/com_session.h"
#include "ui/shell_library.h"

namespace tarn {

bool OpenWithShell(HWND owner, const std::wstring& target) {
    const auto shellExecute =
        FindFunction<decltype(&ShellExecuteW)>(ShellLibrary(), "ShellExecuteW");
    if (shellExecute == nullptr) return false;

    const ComSession com;
    const HINSTANCE result =
        shellExecute(owner, L"open", target.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    // Not a handle but a number, and up to 32 it is an error code.
    return reinterpret_cast<INT_PTR>(result) > 32;
}

}  // namespace tarn
