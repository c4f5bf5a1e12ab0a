#pragma once

#include <jni.h>

namespace tarn {

/// Is told when Java ends the process. The calls come on whatever thread the JVM chooses, while
/// the rest of the launcher waits.
class ExitListener {
  public:
    /// `System.exit` or `Runtime.halt`, with its exit code.
    virtual void Exit(jint code) = 0;
    /// The JVM gives up.
    virtual void Abort() = 0;

  protected:
    ~ExitListener() = default;
};

/// The place where an exit listener is installed. Made once, with the launcher: the JVM hands its
/// hooks no context, so they find it through a process-wide pointer.
class ExitHooks {
  public:
    ExitHooks();
    ~ExitHooks();
    ExitHooks(const ExitHooks&) = delete;
    ExitHooks& operator=(const ExitHooks&) = delete;

    /// Written before the JVM is created, read by its threads. None is installed by default.
    ExitListener* listener = nullptr;

    /// What the JVM gets as its options "exit" and "abort".
    static void JNICALL OnExit(jint code) noexcept;
    static void JNICALL OnAbort() noexcept;

  private:
    static ExitHooks* instance_;
};

}  // namespace tarn
