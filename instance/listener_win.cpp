#include "instance/listener.h"

#include <memory>
#include <new>

#include "base/thread.h"

namespace tarn {
namespace {

struct Request {
    HandOffServer& server;
    DWORD senderThread;
};

DWORD WINAPI ServeRequest(void* parameter) noexcept {
    const std::unique_ptr<Request> request(static_cast<Request*>(parameter));
    return request->server.HandOff(request->senderThread) ? 0 : 1;
}

// Drops the request when memory or a thread is missing: the listener must stay available.
void Dispatch(HandOffServer& server, DWORD senderThread) {
    std::unique_ptr<Request> request(new (std::nothrow) Request{server, senderThread});
    if (request == nullptr) return;
    const UniqueHandle worker(CreateThread(nullptr, 0, ServeRequest, request.get(), 0, nullptr));
    if (worker) static_cast<void>(request.release());
}

}  // namespace

bool Listener::Start(HandOffServer& server, DWORD* threadId) {
    listenerThread_.reset(CreateThread(nullptr, 0, Listen, &server, 0, threadId));
    return static_cast<bool>(listenerThread_);
}

void Listener::Stop() {
    if (!listenerThread_) return;
    QuitAndJoin(listenerThread_.get(), GetThreadId(listenerThread_.get()));
    listenerThread_.reset();
}

DWORD WINAPI Listener::Listen(void* parameter) noexcept {
    HandOffServer& server = *static_cast<HandOffServer*>(parameter);
    MSG message;
    while (const BOOL result = GetMessageW(&message, nullptr, 0, 0)) {
        // -1 is an error without a message; the listener continues.
        if (result > 0 && message.message == server.messageId()) {
            Dispatch(server, static_cast<DWORD>(message.wParam));
        }
    }
    return 0;
}

}  // namespace tarn
