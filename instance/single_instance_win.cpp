#include "instance/single_instance.h"

#include <atomic>
#include <optional>

#include "base/paths.h"
#include "instance/shared_block.h"
#include "settings/keys.h"
#include "settings/layered_settings.h"
#include "settings/settings_files.h"

namespace tarn {
namespace {

constexpr DWORD kPollMilliseconds = 100;

// Whether a view's pages are there. Somebody else may have made the block without them, and the
// first access would end this process. The block is smaller than a page.
bool IsCommitted(const void* view) {
    MEMORY_BASIC_INFORMATION region;
    return VirtualQuery(view, &region, sizeof region) != 0 && region.State == MEM_COMMIT;
}

// A thread has a message queue from its first look for a message on; before that an answer posted
// to it is lost.
void MakeMessageQueue() {
    MSG message;
    PeekMessageW(&message, nullptr, WM_USER, WM_USER, PM_NOREMOVE);
}

}  // namespace

bool SingleInstance::Setup(const std::vector<std::wstring>& arguments) {
    std::optional<std::wstring> settingsPath = MainSettingsPath();
    if (!settingsPath) return false;
    // A service runs for nobody in particular, so there is nobody to hand arguments to.
    if (target_.settings.serviceMode) return true;
    const LayeredSettings settings(*std::move(settingsPath));
    if (settings.GetValue(keys::kApplication, keys::kSingleInstance) != L"yes") return true;

    const std::optional<std::wstring> modulePath = ModulePath();
    if (!modulePath) return true;
    const std::wstring name = InstanceName(*modulePath);
    singleInstance_ = MapBlock(name);
    if (!singleInstance_) return true;
    if (!firstInstance_) return HandOver(arguments);
    singleInstance_ = StartListening(name);
    return true;
}

// What has been made stays until `Stop` even if a later step fails: other launches have seen it.
bool SingleInstance::MapBlock(const std::wstring& name) {
    HANDLE const mapping = CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                              sizeof(SharedBlock), name.c_str());
    const DWORD error = GetLastError();
    mapping_.reset(mapping);
    if (!mapping_) return false;
    firstInstance_ = error == ERROR_SUCCESS;
    // The size is asked for, so that a smaller block of this name is refused here.
    view_.reset(MapViewOfFile(mapping_.get(), FILE_MAP_WRITE, 0, 0, sizeof(SharedBlock)));
    return view_ && (firstInstance_ || IsCommitted(view_.get()));
}

bool SingleInstance::HandOver(const std::vector<std::wstring>& arguments) {
    MakeMessageQueue();
    if (!EncodeArguments(arguments, block().arguments)) return false;
    // The thread's id comes last when the first instance fills in the block, so it is read first:
    // a request that goes out with the message's id still missing would be one that nobody sees.
    const DWORD listener = std::atomic_ref(block().listenerThreadId).load();
    // No thread has the id 0, but Wine takes messages for it; this launch would wait in vain.
    if (listener == 0) return false;
    const UINT messageId = block().messageId;
    return PostThreadMessageW(listener, messageId, GetCurrentThreadId(), 0) != FALSE;
}

bool SingleInstance::StartListening(const std::wstring& name) {
    const std::wstring eventName = ReadyEventName(name);
    readyEvent_.reset(CreateEventW(nullptr, TRUE, FALSE, eventName.c_str()));
    // Nobody asks for the event by its name. Where an object of another kind has it, requests
    // must wait all the same.
    if (!readyEvent_) readyEvent_.reset(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    // The name may still lead to the event of an instance that is just going.
    ResetEvent(readyEvent_.get());

    const UINT messageId = RegisterWindowMessageW(name.c_str());
    if (messageId == 0) return false;
    block().messageId = messageId;
    block().processId = GetCurrentProcessId();
    handOffServer_ = new HandOffServer(target_, block(), readyEvent_.get(), messageId);
    // The address that other launches post to is in the block before the thread runs.
    static_assert(sizeof(DWORD) == sizeof(block().listenerThreadId));
    void* const threadId = &block().listenerThreadId;
    return listener_.Start(*handOffServer_, static_cast<DWORD*>(threadId));
}

int SingleInstance::WaitForAnswer() const {
    const UINT messageId = block().messageId;
    const UniqueHandle first(OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, block().processId));
    if (!first) return 0;
    for (;;) {
        // Asked before the queue is looked at: an answer that was posted just before the end of
        // that process counts.
        DWORD code = 0;
        const bool running = GetExitCodeProcess(first.get(), &code) && code == STILL_ACTIVE;
        MSG message;
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) && message.message == messageId) {
            return static_cast<int>(message.wParam);
        }
        if (!running) return static_cast<int>(code);
        Sleep(kPollMilliseconds);
    }
}

void SingleInstance::Stop() {
    listener_.Stop();
    if (handOffServer_ != nullptr) handOffServer_->Close();
    view_.reset();
    mapping_.reset();
    readyEvent_.reset();
}

}  // namespace tarn
