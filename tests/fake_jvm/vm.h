#pragma once

#include <jni.h>

#include <mutex>
#include <string_view>
#include <vector>

#include "tests/fake_jvm/objects.h"
#include "tests/fake_jvm/script.h"

namespace fake_jvm {

/// The state of the process: the VM, its hooks, the standard streams.
struct VirtualMachine {
    JavaVM_ interface {};
    void(JNICALL* exitHook)(jint) = nullptr;
    void(JNICALL* abortHook)() = nullptr;
    Object* standardOutput = nullptr;  // null: that of the process
    Object* standardError = nullptr;

    static VirtualMachine& Get();
};

/// Protects everything; released while the application "runs".
std::recursive_mutex& Lock();

/// The calling thread's environment, created on first use.
Environment* CurrentEnvironment();

/// One call of a JNI function: checks the rules, consults the script, writes the log line.
class Call {
  public:
    enum class Pending { Forbidden, Allowed };

    Call(JNIEnv* env, const char* function, std::string_view arguments,
         Pending pending = Pending::Forbidden);

    /// Whether the script makes this call fail. Its exception is then pending.
    bool Fails() const { return outcome_ != Outcome::Normal; }
    Environment* environment() const { return environment_; }

    /// Releases the lock while the application's code runs.
    void Unlock() { guard_.unlock(); }

  private:
    std::unique_lock<std::recursive_mutex> guard_;
    Environment* environment_;
    Outcome outcome_ = Outcome::Normal;
};

/// Creates a throwable and makes it pending.
void Throw(Environment* environment, std::string_view className, std::string_view message);

/// Performs the actions of one place of the scripted application: the lines `PLACE = ACTION`, in
/// order. Returns the value of the last `return N`.
jint RunActions(Environment* environment, std::string_view place);

/// Ends the process as System.exit does: calls the exit hook, then exits.
[[noreturn]] void ExitProcessLikeJava(jint code);

/// Writes to System.out or System.err.
void Print(bool toError, std::string_view bytes);

/// Runs a method of the scripted class library or application.
jvalue Invoke(Environment* environment, Object* receiver, const Method& method,
              const std::vector<jvalue>& arguments);

/// The function table of every environment, and that of the VM.
const JNINativeInterface_* Functions();
const JNIInvokeInterface_* InvocationFunctions();

}  // namespace fake_jvm
