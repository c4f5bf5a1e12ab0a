#include "instance/single_instance.h"

#include <atomic>
#include <optional>

#include "base/paths.h"
#include "instance/shared_block.h"
#include "settings/keys.h"
#include "settings/layered_settings.h"
#include "settings/settings_paths.h"

namespace tarn {
namespace {

constexpr DWORD kPollIntervalMs = 100;

// Windows creates a thread's message queue with its first call that reads messages. An answer that
// is posted before that is lost.
void CreateMessageQueue() {
    MSG message;
    PeekMessageW(&message, nullptr, WM_USER, WM_USER, PM_NOREMOVE);
}

}  // namespace

bool IsSingleInstanceOn(const LayeredSettings& settings) {
    return IsExactlyYes(settings.GetValue(keys::kApplication, keys::kSingleInstance));
}

bool IsCommitted(const void* view) {
    MEMORY_BASIC_INFORMATION region;
    return VirtualQuery(view, &region, sizeof region) != 0 && region.State == MEM_COMMIT;
}

bool SingleInstance::SetupSingleInstance(const std::vector<std::wstring>& arguments) {
    std::optional<std::wstring> settingsPath = MainSettingsPath();
    if (!settingsPath) return false;
    if (target_.settings.serviceMode) return true;
    if (!IsSingleInstanceOn(LayeredSettings(*std::move(settingsPath)))) return true;

    const std::optional<std::wstring> modulePath = ModulePath();
    if (!modulePath) return true;
    const std::wstring instanceName = InstanceName(*modulePath);
    singleInstance_ = MapBlock(instanceName);
    if (!singleInstance_) return true;
    if (!firstInstance_) return HandOver(arguments);
    singleInstance_ = StartListening(instanceName);
    return true;
}

// The objects stay until `Stop` even if a later step fails, because other launches may use them.
bool SingleInstance::MapBlock(const std::wstring& instanceName) {
    HANDLE const mapping = CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                              sizeof(SharedBlock), instanceName.c_str());
    const DWORD error = GetLastError();
    mappingHandle_.reset(mapping);
    if (!mappingHandle_) return false;
    firstInstance_ = error == ERROR_SUCCESS;
    // With the size stated, mapping a smaller block of this name fails here.
    sharedBlock_.reset(
        MapViewOfFile(mappingHandle_.get(), FILE_MAP_WRITE, 0, 0, sizeof(SharedBlock)));
    return sharedBlock_ && (firstInstance_ || IsCommitted(sharedBlock_.get()));
}

bool SingleInstance::HandOver(const std::vector<std::wstring>& arguments) {
    CreateMessageQueue();
    if (!EncodeArguments(arguments, block().arguments)) return false;
    // The first instance writes the thread id last, so it is read first: a request without the
    // message id would be ignored.
    const DWORD listenerThreadId = std::atomic_ref(block().listenerThreadId).load();
    // No thread has the id 0, but Wine accepts messages for it, and the answer would never come.
    if (listenerThreadId == 0) return false;
    const UINT messageId = block().messageId;
    return PostThreadMessageW(listenerThreadId, messageId, GetCurrentThreadId(), 0) != FALSE;
}

bool SingleInstance::StartListening(const std::wstring& instanceName) {
    const std::wstring eventName = ReadyEventName(instanceName);
    readyEvent_.reset(CreateEventW(nullptr, TRUE, FALSE, eventName.c_str()));
    // No process opens the event by its name. If an object of another type has the name, requests
    // still need an event.
    if (!readyEvent_) readyEvent_.reset(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    // The name may still refer to the event of an instance that is just ending.
    ResetEvent(readyEvent_.get());

    const UINT messageId = RegisterWindowMessageW(instanceName.c_str());
    if (messageId == 0) return false;
    block().messageId = messageId;
    block().processId = GetCurrentProcessId();
    handOffServer_ = new HandOffServer(target_, block(), readyEvent_.get(), messageId);
    // `CreateThread` writes the id to the block before the thread runs.
    static_assert(sizeof(DWORD) == sizeof(block().listenerThreadId));
    void* const threadId = &block().listenerThreadId;
    return listener_.Start(*handOffServer_, static_cast<DWORD*>(threadId));
}

// Polls, and takes 259 for a running process: docs/developer/compatibility.md.
int SingleInstance::WaitForAnswer() const {
    const UINT messageId = block().messageId;
    const UniqueHandle first(OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, block().processId));
    if (!first) return 0;
    for (;;) {
        // Queried before the message queue is read, so that an answer posted just before the end of
        // the process counts.
        DWORD code = 0;
        const bool running = GetExitCodeProcess(first.get(), &code) && code == STILL_ACTIVE;
        MSG message;
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) && message.message == messageId) {
            return static_cast<int>(message.wParam);
        }
        if (!running) return static_cast<int>(code);
        Sleep(kPollIntervalMs);
    }
}

void SingleInstance::Stop() {
    listener_.Stop();
    if (handOffServer_ != nullptr) handOffServer_->Close();
    sharedBlock_.reset();
    mappingHandle_.reset();
    readyEvent_.reset();
}

}  // namespace tarn
