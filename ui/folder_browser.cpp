#include "ui/folder_browser.h"

#include <shlobj.h>

#include "base/dynamic_library.h"
#include "base/handles.h"
#include "ui/com_session.h"
#include "ui/shell_library.h"

namespace tarn {
namespace {

/// A shell item's list of identifiers.
struct ItemListTraits {
    using Value = PIDLIST_ABSOLUTE;
    static Value None() { return nullptr; }
    static void Close(Value value) { ComSession::Free(value); }
};
using ItemList = UniqueResource<ItemListTraits>;

}  // namespace

std::optional<std::wstring> BrowseForFolder(HWND owner, const std::wstring& title) {
    const auto browse =
        FindFunction<decltype(&SHBrowseForFolderW)>(ShellLibrary(), "SHBrowseForFolderW");
    const auto pathOf =
        FindFunction<decltype(&SHGetPathFromIDListW)>(ShellLibrary(), "SHGetPathFromIDListW");
    if (browse == nullptr || pathOf == nullptr) return std::nullopt;

    // The new style of the window asks for COM.
    const ComSession com;
    wchar_t displayName[MAX_PATH];  // the call's own limit
    BROWSEINFOW request{};
    request.hwndOwner = owner;
    request.pszDisplayName = displayName;
    request.lpszTitle = title.c_str();
    request.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE | BIF_NONEWFOLDERBUTTON;
    const ItemList chosen(browse(&request));
    if (!chosen) return std::nullopt;

    wchar_t path[MAX_PATH];  // the call takes no size and writes at most this much
    if (!pathOf(chosen.get(), path)) return std::nullopt;
    return path;
}

}  // namespace tarn
