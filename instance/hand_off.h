#pragma once

#include <jni.h>

#include <optional>
#include <string>
#include <vector>

#include "base/windows.h"
#include "instance/shared_block.h"
#include "settings/settings.h"

namespace tarn {

/// What a hand-off needs of the launcher, looked at when a request comes.
struct HandOffTarget {
    const Settings& settings;
    /// Written by the thread that creates the JVM, before the ready event is set.
    JavaVM* const& javaVm;
};

/// Where the first instance serves the requests of second launches, each on a thread of its own.
///
/// A request may still wait for the application to start when the launcher is done, and nothing
/// stops its thread. So a server is made with `new` and never freed (the process ends right after),
/// and it is closed before what it looks at goes.
class HandOffServer {
  public:
    HandOffServer(const HandOffTarget& target, const SharedBlock& block, HANDLE readyEvent,
                  UINT messageId)
        : target_(target), block_(block), readyEvent_(readyEvent), messageId_(messageId) {}
    HandOffServer(const HandOffServer&) = delete;
    HandOffServer& operator=(const HandOffServer&) = delete;

    /// The registered message that asks for a hand-off, and that answers it.
    UINT messageId() const { return messageId_; }

    /// One request: waits without limit until the application is about to run, calls its
    /// `secondaryMain` with the arguments that lie in the block, and posts the answer to the
    /// thread that asked. Returns whether all of that worked. Where it did not there may have been
    /// no answer, and the second launch then waits for the end of this process.
    bool HandOff(DWORD senderThread);

    /// Requests that have not got as far as Java fail from here on.
    void Close();

  private:
    struct Application {
        JavaVM* javaVm;
        std::string ansiMainClass;
        bool detach;
    };

    std::optional<Application> LookAtApplication();
    std::optional<std::vector<std::wstring>> ReadArguments();
    bool CallSecondaryMain(JNIEnv* env, const std::string& ansiMainClass, DWORD senderThread);
    void Answer(DWORD senderThread, jint result) const;

    const HandOffTarget target_;
    const SharedBlock& block_;
    const HANDLE readyEvent_;
    const UINT messageId_;
    /// Held shared while a request looks at the target or the block, exclusively to close.
    SRWLOCK lock_ = SRWLOCK_INIT;
    bool closed_ = false;
};

}  // namespace tarn
