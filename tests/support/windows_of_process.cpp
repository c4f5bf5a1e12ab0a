#include "tests/support/windows_of_process.h"

#include <gtest/gtest.h>

#include "tests/support/text.h"

namespace tarn::test {

namespace {

constexpr wchar_t kDialogClass[] = L"#32770";
// The control id of the text of a message box.
constexpr int kMessageText = 0xFFFF;

struct Search {
    DWORD process;
    std::wstring_view className;
    std::vector<HWND> found;
};

BOOL CALLBACK Collect(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != search.process) return TRUE;
    if (search.className.empty() || WindowClass(window) == search.className) {
        search.found.push_back(window);
    }
    return TRUE;
}

BOOL CALLBACK CollectChild(HWND window, LPARAM parameter) {
    reinterpret_cast<std::vector<HWND>*>(parameter)->push_back(window);
    return TRUE;
}

}  // namespace

std::vector<HWND> WindowsOf(DWORD process, std::wstring_view className) {
    Search search{process, className, {}};
    EnumWindows(Collect, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND WaitForWindow(const LaunchedProcess& process, std::wstring_view className,
                   std::chrono::milliseconds timeLimit) {
    HWND visible = nullptr;
    WaitUntil(
        [&] {
            for (HWND each : WindowsOf(process.id(), className)) {
                if (IsWindowVisible(each)) visible = each;
            }
            return visible != nullptr || process.HasEnded();
        },
        timeLimit);
    return visible;
}

std::wstring WindowText(HWND window) {
    // By message, because GetWindowText does not read controls of another process.
    DWORD_PTR length = 0;
    const auto limit = static_cast<UINT>(kTimeLimit.count());
    SendMessageTimeoutW(window, WM_GETTEXTLENGTH, 0, 0, SMTO_NORMAL, limit, &length);
    std::wstring text(length + 1, L'\0');
    DWORD_PTR copied = 0;
    SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                        SMTO_NORMAL, limit, &copied);
    text.resize(copied);
    return text;
}

std::wstring WindowClass(HWND window) {
    // The name of a class has at most 256 characters.
    wchar_t name[257] = L"";
    GetClassNameW(window, name, 257);
    return name;
}

HWND Child(HWND window, int id) {
    for (HWND each : Children(window)) {
        if (GetDlgCtrlID(each) == id) return each;
    }
    return nullptr;
}

std::vector<HWND> Children(HWND window) {
    std::vector<HWND> children;
    EnumChildWindows(window, CollectChild, reinterpret_cast<LPARAM>(&children));
    return children;
}

void PressButton(HWND dialog, int id) {
    PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                 reinterpret_cast<LPARAM>(Child(dialog, id)));
}

std::optional<MessageBoxContent> WaitForMessageBox(const LaunchedProcess& process) {
    MessageBoxContent content;
    content.window = WaitForWindow(process, kDialogClass);
    if (content.window == nullptr) {
        ADD_FAILURE() << "no message box came";
        return std::nullopt;
    }
    content.caption = WindowText(content.window);
    content.owner = GetWindow(content.window, GW_OWNER);
    for (HWND each : Children(content.window)) {
        const int id = GetDlgCtrlID(each);
        if (WindowClass(each) == L"Button") {
            if (IsWindowVisible(each)) content.buttons.push_back(WindowText(each));
        } else if ((id & 0xFFFF) == kMessageText) {
            content.text = WindowText(each);
        } else if (IsWindowVisible(each)) {
            content.hasIcon = true;
        }
    }
    return content;
}

std::wstring CloseErrorBox(const LaunchedProcess& process, HWND owner) {
    const auto box = WaitForMessageBox(process);
    if (!box) return {};
    // Windows' default caption, in the user's language.
    if (PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_ENGLISH) {
        EXPECT_EQ(ToUtf8(box->caption), "Error");
    }
    EXPECT_EQ(box->buttons.size(), 1U);
    EXPECT_TRUE(box->hasIcon);
    EXPECT_EQ(box->owner, owner);
    PressButton(box->window, IDOK);
    // The next box is a different one.
    EXPECT_TRUE(WaitUntil([&] { return !IsWindow(box->window); }));
    return box->text;
}

}  // namespace tarn::test
