#pragma once

#include <jni.h>

#include <mutex>
#include <string_view>
#include <vector>

#include "tests/fake_jvm/objects.h"
#include "tests/fake_jvm/script.h"

namespace fake_jvm {

/// What there is once in the process: the VM, the hooks that it was given, the standard streams.
struct VirtualMachine {
    JavaVM_ interface {};
    void(JNICALL* exitHook)(jint) = nullptr;
    void(JNICALL* abortHook)() = nullptr;
    Object* standardOutput = nullptr;  // null: the process's own
    Object* standardError = nullptr;

    static VirtualMachine& Get();
};

/// Guards everything; let go of while the application "runs".
std::recursive_mutex& Lock();

/// The calling thread's environment; made on first use.
Environment* CurrentEnvironment();

/// One call of an interface function: checks the rules, asks the script, writes the log line.
class Call {
  public:
    enum class Pending { Forbidden, Allowed };

    Call(JNIEnv* env, const char* function, std::string_view arguments,
         Pending pending = Pending::Forbidden);

    /// Whether the script wants this call to fail (its exception is pending by then).
    bool Fails() const { return outcome_ != Outcome::Normal; }
    Environment* environment() const { return environment_; }

    /// Lets the other threads in while the application's code runs.
    void Unlock() { guard_.unlock(); }

  private:
    std::unique_lock<std::recursive_mutex> guard_;
    Environment* environment_;
    Outcome outcome_ = Outcome::Normal;
};

/// Makes a throwable and leaves it pending.
void Throw(Environment* environment, std::string_view className, std::string_view message);

/// What the scripted application does at one of its places: the lines `PLACE = ACTION`, in order.
/// The value of the last `return N`.
jint RunActions(Environment* environment, std::string_view place);

/// The end of the process as System.exit does it: the exit hook, then the exit.
[[noreturn]] void ExitProcessLikeJava(jint code);

/// Writes to System.out or System.err.
void Print(bool toError, std::string_view bytes);

/// Runs the method as the scripted class library and application have it.
jvalue Invoke(Environment* environment, Object* receiver, const Method& method,
              const std::vector<jvalue>& arguments);

/// The table of functions of every environment, and that of the VM.
const JNINativeInterface_* Functions();
const JNIInvokeInterface_* InvocationFunctions();

}  // namespace fake_jvm
