#pragma once

#include <jni.h>

#include <optional>
#include <string>
#include <vector>

#include "base/handles.h"
#include "base/windows.h"
#include "instance/shared_block.h"
#include "settings/settings.h"

namespace tarn {

/// The launcher's records that a hand-off reads when a request arrives.
struct HandOffTarget {
    const Settings& settings;
    /// Written by the thread that creates the JVM, before the ready event is set.
    JavaVM* const& javaVm;
};

/// Performs the requests of second instances in the first instance. Each request calls it on a
/// worker thread of its own.
///
/// A worker may still wait for the ready event when the launcher is destroyed, and no operation
/// stops it. Therefore the object is allocated with `new` and never freed (the process ends
/// shortly afterwards), and `Close` is called before the records of the target are destroyed.
class HandOffServer {
  public:
    HandOffServer(const HandOffTarget& target, const SharedBlock& block, HANDLE readyEvent,
                  UINT messageId)
        : target_(target), block_(block), readyEvent_(readyEvent), messageId_(messageId) {}
    HandOffServer(const HandOffServer&) = delete;
    HandOffServer& operator=(const HandOffServer&) = delete;

    /// The registered message of a request and of its answer.
    UINT messageId() const { return messageId_; }

    /// Performs one request: waits without a time limit for the ready event, attaches the current
    /// thread to the JVM, calls the application's `secondaryMain` with the arguments in the shared
    /// block, and posts the answer to `senderThread` (`PostThreadMessageW`). Returns false when a
    /// step fails; the answer may then be missing, and the second instance waits until this process
    /// ends.
    bool HandOff(DWORD senderThread);

    /// Makes requests fail that have not reached the JVM yet.
    void Close();

  private:
    struct Application {
        JavaVM* javaVm;
        /// With "/" separators, in the thread's ANSI code page.
        std::string ansiMainClass;
        bool detach;
    };

    std::optional<Application> ReadTarget();
    std::optional<std::vector<std::wstring>> ReadArguments();
    bool CallSecondaryMain(JNIEnv* env, const std::string& ansiMainClass, DWORD senderThread);
    void PostAnswer(DWORD senderThread, jint result) const;

    const HandOffTarget target_;
    const SharedBlock& block_;
    const HANDLE readyEvent_;
    const UINT messageId_;
    /// Held while a request reads the target or the block, and by `Close`.
    SRWLOCK lock_ = SRWLOCK_INIT;
    bool closed_ = false;
};

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
