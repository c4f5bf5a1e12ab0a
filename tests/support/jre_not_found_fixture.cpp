#include "tests/support/jre_not_found_fixture.h"

#include <commctrl.h>
#include <shlobj.h>

#include "base/handles.h"
#include "tests/support/wait.h"

namespace tarn::test {

namespace {

constexpr wchar_t kDialogClass[] = L"#32770";

/// A text in the memory of another process, for messages that take a pointer.
class TextInProcess {
  public:
    TextInProcess(DWORD process, const std::wstring& text)
        : process_(OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_WRITE, FALSE, process)) {
        const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
        memory_ = VirtualAllocEx(process_.get(), nullptr, size, MEM_COMMIT, PAGE_READWRITE);
        WriteProcessMemory(process_.get(), memory_, text.c_str(), size, nullptr);
    }
    ~TextInProcess() { VirtualFreeEx(process_.get(), memory_, 0, MEM_RELEASE); }
    TextInProcess(const TextInProcess&) = delete;
    TextInProcess& operator=(const TextInProcess&) = delete;

    LPARAM address() const { return reinterpret_cast<LPARAM>(memory_); }

  private:
    UniqueHandle process_;
    void* memory_ = nullptr;
};

HWND TreeOf(HWND browser) {
    for (const HWND each : Children(browser)) {
        if (WindowClass(each) == WC_TREEVIEWW) return each;
    }
    return nullptr;
}

}  // namespace

bool SelectInBrowser(DWORD process, HWND browser, const std::wstring& folder,
                     std::chrono::milliseconds timeLimit) {
    const TextInProcess text(process, folder);
    const HWND tree = TreeOf(browser);
    // A browser that has just opened selects its root afterwards, so the selection is repeated.
    return tree != nullptr &&
           WaitUntil(
               [&] {
                   SendMessageW(browser, BFFM_SETSELECTIONW, TRUE, text.address());
                   const LRESULT selected = SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CARET, 0);
                   return selected != 0 &&
                          selected != SendMessageW(tree, TVM_GETNEXTITEM, TVGN_ROOT, 0);
               },
               timeLimit);
}

JreNotFoundFixture::JreNotFoundFixture() : settings(app.StandardSettings()) {
    settings.Remove(L"Java Runtime Environment", L"JRE Path");
    // A word that matches no source, so that the runtimes of this machine are not found.
    settings.Runtime(L"JVM Source", L"none");
    settings.Runtime(L"Maximum Version", L"any");
    settings.Set(L"Product Information", L"Product Name", kProductName);
    settings.Set(L"Product Information", L"Product Code", kProductCode);
    CreateFolders(app.AppDataFolder());
}

void JreNotFoundFixture::StartUntilDialog(std::wstring_view argumentText) {
    app.WriteSettings(settings);
    process = app.Launch(argumentText);
    dialog = WaitForWindow(*process, kDialogClass);
    ASSERT_NE(dialog, nullptr) << "no dialog came";
    ASSERT_EQ(WindowText(dialog), L"JRE Not Found");
}

HWND JreNotFoundFixture::OpenBrowser() {
    PressButton(dialog, kBrowse);
    HWND browser = nullptr;
    WaitUntil([&] {
        for (const HWND each : WindowsOf(process->id(), kDialogClass)) {
            if (each != dialog && IsWindowVisible(each)) browser = each;
        }
        return browser != nullptr || process->HasEnded();
    });
    EXPECT_NE(browser, nullptr) << "no folder browser came";
    return browser;
}

void JreNotFoundFixture::Select(HWND browser, const std::wstring& folder) const {
    EXPECT_TRUE(SelectInBrowser(process->id(), browser, folder)) << "the folder cannot be selected";
}

void JreNotFoundFixture::SelectVirtualFolder(HWND browser) const {
    const HWND tree = TreeOf(browser);
    const auto next = [&](WPARAM relation, LRESULT item) {
        return SendMessageW(tree, TVM_GETNEXTITEM, relation, item);
    };
    EXPECT_TRUE(WaitUntil([&] {
        const LRESULT root = next(TVGN_ROOT, 0);
        SendMessageW(tree, TVM_EXPAND, TVE_EXPAND, root);
        for (LRESULT item = next(TVGN_CHILD, root); item != 0; item = next(TVGN_NEXT, item)) {
            SendMessageW(tree, TVM_SELECTITEM, TVGN_CARET, item);
            if (!IsWindowEnabled(Child(browser, kOk))) return true;
        }
        return false;
    })) << "nothing without a path in the tree";
}

void JreNotFoundFixture::CloseBrowser(HWND browser, int button) const {
    PressButton(browser, button);
    EXPECT_TRUE(WaitUntil([&] { return !IsWindow(browser) && IsWindowEnabled(dialog); }));
    // The message is answered after the launcher has handled the end of the browser.
    SendMessageW(dialog, WM_NULL, 0, 0);
}

void JreNotFoundFixture::BrowseTo(const std::wstring& folder) {
    const HWND browser = OpenBrowser();
    ASSERT_NE(browser, nullptr);
    Select(browser, folder);
    ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(Child(browser, kOk)) != FALSE; }));
    CloseBrowser(browser, kOk);
}

std::int32_t JreNotFoundFixture::Confirm() {
    PressButton(dialog, kOk);
    return End();
}

std::wstring JreNotFoundFixture::PerUserFile(std::wstring_view program) const {
    return app.AppDataFolder() + L"\\" + kProductName + L"\\" + kProductCode + L"\\" +
           std::wstring(program) + L".ini";
}

}  // namespace tarn::test
