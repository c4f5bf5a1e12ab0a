#include "tests/fake_jvm/vm.h"

#include "tests/fake_jvm/call_log.h"

namespace fake_jvm {

VirtualMachine& VirtualMachine::Get() {
    static VirtualMachine machine;
    return machine;
}

std::recursive_mutex& Lock() {
    static std::recursive_mutex lock;
    return lock;
}

Environment* CurrentEnvironment() {
    static std::vector<Environment*> environments;
    const std::lock_guard guard(Lock());
    const DWORD thread = GetCurrentThreadId();
    for (Environment* known : environments) {
        if (known->thread == thread) return known;
    }
    auto* const fresh = new Environment;
    fresh->functions = Functions();
    fresh->thread = thread;
    environments.push_back(fresh);
    return fresh;
}

Call::Call(JNIEnv* env, const char* function, std::string_view arguments, Pending pending)
    : guard_(Lock()), environment_(static_cast<Environment*>(env)) {
    if (environment_->thread != GetCurrentThreadId()) {
        LogViolation(std::string(function) + " with another thread's environment");
    } else if (!environment_->attached) {
        LogViolation(std::string(function) + " on a thread that is not attached");
    }
    if (environment_->pending != nullptr && pending == Pending::Forbidden) {
        LogViolation(std::string(function) +
                     " with an exception pending: " + environment_->pending->className);
    }
    outcome_ = Script::Get().NextCall(function);
    std::string line = std::string(function) + '(';
    line += arguments;
    line += ')';
    if (outcome_ == Outcome::Fail) line += " fails";
    if (outcome_ == Outcome::Throw) line += " throws";
    Log(line);
    if (outcome_ == Outcome::Throw) {
        Throw(environment_, "java/lang/OutOfMemoryError", std::string("scripted in ") + function);
    }
}

void Throw(Environment* environment, std::string_view className, std::string_view message) {
    environment->pending = NewThrowable(std::string(className), std::string(message));
    if (Script::Get().HasLine("forget")) environment->thrown.push_back(environment->pending);
}

void Print(bool toError, std::string_view bytes) {
    VirtualMachine& machine = VirtualMachine::Get();
    Object* stream = toError ? machine.standardError : machine.standardOutput;
    HANDLE file = GetStdHandle(toError ? STD_ERROR_HANDLE : STD_OUTPUT_HANDLE);
    if (stream != nullptr && stream->stream != nullptr) {
        if (stream->stream->file == nullptr) {
            stream->stream->bytes += bytes;
            return;
        }
        file = stream->stream->file;
    }
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

void ExitProcessLikeJava(jint code) {
    const auto hook = VirtualMachine::Get().exitHook;
    if (hook != nullptr) hook(code);
    {
        // Other threads still log. The process must not end with the lock held.
        const std::lock_guard guard(Lock());
        if (hook != nullptr) Log("exit hook returned");
        Log("process exits " + std::to_string(code));
    }
    ExitProcess(static_cast<UINT>(code));
}

}  // namespace fake_jvm
