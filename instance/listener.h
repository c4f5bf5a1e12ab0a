#pragma once

#include "base/handles.h"
#include "instance/hand_off.h"

namespace tarn {

/// The first instance's thread that takes the requests of second launches. It only dispatches:
/// each request gets a worker thread of its own.
class Listener {
  public:
    Listener() = default;
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    ~Listener() { Stop(); }

    /// Starts the thread, whose id is in `threadId` before it runs: that is the address that
    /// second launches post to. The server outlives the thread and its workers.
    bool Start(HandOffServer& server, DWORD* threadId);

    /// Ends the thread and waits until it has ended. Workers are left alone.
    void Stop();

  private:
    static DWORD WINAPI Listen(void* parameter) noexcept;

    UniqueHandle thread_;
};

}  // namespace tarn
