#include "instance/listener.h"

#include <memory>
#include <new>

namespace tarn {
namespace {

struct Request {
    HandOffServer& server;
    DWORD senderThread;
};

DWORD WINAPI Serve(void* parameter) noexcept {
    const std::unique_ptr<Request> request(static_cast<Request*>(parameter));
    return request->server.HandOff(request->senderThread) ? 0 : 1;
}

// A request that cannot be taken is dropped: the listener must be there for the next one.
void Dispatch(HandOffServer& server, DWORD senderThread) {
    std::unique_ptr<Request> request(new (std::nothrow) Request{server, senderThread});
    if (request == nullptr) return;
    const UniqueHandle worker(CreateThread(nullptr, 0, Serve, request.get(), 0, nullptr));
    if (worker) static_cast<void>(request.release());
}

}  // namespace

bool Listener::Start(HandOffServer& server, DWORD* threadId) {
    thread_.reset(CreateThread(nullptr, 0, Listen, &server, 0, threadId));
    return static_cast<bool>(thread_);
}

void Listener::Stop() {
    if (!thread_) return;
    // A post fails as long as the thread has no queue yet, so one is not enough.
    DWORD code = 0;
    do {
        PostThreadMessageW(GetThreadId(thread_.get()), WM_QUIT, 0, 0);
    } while (GetExitCodeThread(thread_.get(), &code) && code == STILL_ACTIVE);
    thread_.reset();
}

DWORD WINAPI Listener::Listen(void* parameter) noexcept {
    HandOffServer& server = *static_cast<HandOffServer*>(parameter);
    MSG message;
    while (const BOOL got = GetMessageW(&message, nullptr, 0, 0)) {
        // -1 is no message, but no reason to stop listening either.
        if (got > 0 && message.message == server.messageId()) {
            Dispatch(server, static_cast<DWORD>(message.wParam));
        }
    }
    return 0;
}

}  // namespace tarn
