#pragma once

#include "base/handles.h"
#include "instance/hand_off.h"

namespace tarn {

/// The first instance's thread that receives the requests of second instances. It only dispatches:
/// each request is performed on a worker thread of its own.
class Listener {
  public:
    Listener() = default;
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    ~Listener() { Stop(); }

    /// Starts the thread (`CreateThread`), which writes its id to `threadId` before it runs: second
    /// instances post their requests to that id. `server` must outlive the thread and the workers.
    bool Start(HandOffServer& server, DWORD* threadId);

    /// Ends the thread and returns when it has ended. Workers continue to run.
    void Stop();

  private:
    static DWORD WINAPI Listen(void* parameter) noexcept;

    UniqueHandle listenerThread_;
};

}  // namespace tarn
