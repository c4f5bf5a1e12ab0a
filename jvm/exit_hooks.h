#pragma once

#include <jni.h>

namespace tarn {

/// Receives the end of the Java application. The JVM calls it on any of its threads.
class ExitListener {
  public:
    /// `System.exit` or `Runtime.halt` was called with this exit code.
    virtual void Exit(jint code) = 0;
    /// The JVM aborts.
    virtual void Abort() = 0;

  protected:
    ~ExitListener() = default;
};

/// The exit and abort hooks of the JVM, and the listener that they call. The launcher has the one
/// object; the hooks, which receive no context, find it through a process-wide pointer.
class ExitHooks {
  public:
    ExitHooks();
    ~ExitHooks();
    ExitHooks(const ExitHooks&) = delete;
    ExitHooks& operator=(const ExitHooks&) = delete;

    /// Not installed by default: docs/developer/compatibility.md. Written before the JVM is
    /// created, read by its threads.
    ExitListener* listener = nullptr;

    /// The `extraInfo` of the JVM options "exit" and "abort".
    static void JNICALL OnExit(jint code) noexcept;
    static void JNICALL OnAbort() noexcept;

  private:
    static ExitHooks* instance_;
};

}  // namespace tarn
