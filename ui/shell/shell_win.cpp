#include "ui/shell/shell.h"

#include <shellapi.h>
#include <shlobj.h>

#include "base/dynamic_library.h"
#include "base/handles.h"

namespace tarn {
namespace {

// Both libraries are loaded on first use: a launch that finds its runtime needs neither. They stay
// loaded, because threads of the shell may still run in them when a call has returned. A static
// would save the repeated lookup, and costs the C++ library's guard and its exception handling.
HMODULE Shell32() {
    return LoadSystemLibrary(L"shell32.dll");
}

HMODULE Ole32() {
    return LoadSystemLibrary(L"ole32.dll");
}

// Initialises COM on this thread while an object lives (`OleInitialize`), for the shell's dialogs
// and for protocol handlers.
class ComSession {
  public:
    ComSession() {
        using OleInitializeFunction = HRESULT(WINAPI*)(void*);
        const auto initialize = FindFunction<OleInitializeFunction>(Ole32(), "OleInitialize");
        initialized_ = initialize != nullptr && SUCCEEDED(initialize(nullptr));
    }
    ~ComSession() {
        if (!initialized_) return;
        using OleUninitializeFunction = void(WINAPI*)();
        const auto uninitialize = FindFunction<OleUninitializeFunction>(Ole32(), "OleUninitialize");
        if (uninitialize != nullptr) uninitialize();
    }
    ComSession(const ComSession&) = delete;
    ComSession& operator=(const ComSession&) = delete;

  private:
    bool initialized_ = false;
};

/// A shell item's list of identifiers.
struct ItemListTraits {
    using Value = PIDLIST_ABSOLUTE;
    static Value None() { return nullptr; }
    static void Close(Value value) {
        using CoTaskMemFreeFunction = void(WINAPI*)(void*);
        const auto free = FindFunction<CoTaskMemFreeFunction>(Ole32(), "CoTaskMemFree");
        if (free != nullptr) free(value);
    }
};
using UniqueItemList = UniqueResource<ItemListTraits>;

}  // namespace

bool OpenWithShell(HWND owner, const std::wstring& target) {
    const auto shellExecute = FindFunction<decltype(&ShellExecuteW)>(Shell32(), "ShellExecuteW");
    if (shellExecute == nullptr) return false;

    const ComSession com;
    const HINSTANCE result =
        shellExecute(owner, L"open", target.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    // Not a handle but a number; values up to 32 are error codes.
    return reinterpret_cast<INT_PTR>(result) > 32;
}

std::optional<std::wstring> BrowseForFolder(HWND owner, const std::wstring& title) {
    const HMODULE shell = Shell32();
    const auto browse = FindFunction<decltype(&SHBrowseForFolderW)>(shell, "SHBrowseForFolderW");
    const auto pathOf =
        FindFunction<decltype(&SHGetPathFromIDListW)>(shell, "SHGetPathFromIDListW");
    if (browse == nullptr || pathOf == nullptr) return std::nullopt;

    // The new dialog style requires COM.
    const ComSession com;
    wchar_t displayName[MAX_PATH];  // the size that the call requires
    BROWSEINFOW request{};
    request.hwndOwner = owner;
    request.pszDisplayName = displayName;
    request.lpszTitle = title.c_str();
    request.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE | BIF_NONEWFOLDERBUTTON;
    const UniqueItemList chosen(browse(&request));
    if (!chosen) return std::nullopt;

    wchar_t path[MAX_PATH];  // the call takes no size and writes at most this many characters
    if (!pathOf(chosen.get(), path)) return std::nullopt;
    return path;
}

}  // namespace tarn
