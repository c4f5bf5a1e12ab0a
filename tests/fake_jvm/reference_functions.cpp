// The functions of references and of pending exceptions.

#include <utility>

#include "tests/fake_jvm/call_log.h"
#include "tests/fake_jvm/function_table.h"
#include "tests/fake_jvm/vm.h"

namespace fake_jvm {

namespace {

constexpr auto kWithPending = Call::Pending::Allowed;

jthrowable JNICALL ExceptionOccurred(JNIEnv* env) {
    const Call call(env, "ExceptionOccurred", "", kWithPending);
    return static_cast<jthrowable>(NewReference(call.environment(), call.environment()->pending));
}

jboolean JNICALL ExceptionCheck(JNIEnv* env) {
    const Call call(env, "ExceptionCheck", "", kWithPending);
    return call.environment()->pending != nullptr ? JNI_TRUE : JNI_FALSE;
}

void JNICALL ExceptionDescribe(JNIEnv* env) {
    const Call call(env, "ExceptionDescribe", "", kWithPending);
    const Object* const pending = std::exchange(call.environment()->pending, nullptr);
    if (pending == nullptr) return;
    Print(true, "Exception in thread \"main\" " + pending->className + ": " +
                    ToUtf8(pending->text) + "\r\n");
}

void JNICALL ExceptionClear(JNIEnv* env) {
    const Call call(env, "ExceptionClear", "", kWithPending);
    call.environment()->pending = nullptr;
}

void JNICALL DeleteLocalRef(JNIEnv* env, jobject reference) {
    auto* const environment = static_cast<Environment*>(env);
    const std::lock_guard guard(Lock());
    if (environment->thread != GetCurrentThreadId()) {
        LogViolation("DeleteLocalRef with another thread's environment");
    }
    DeleteReference(environment, reference);
}

jobject JNICALL NewLocalRef(JNIEnv* env, jobject reference) {
    auto* const environment = static_cast<Environment*>(env);
    return NewReference(environment, Resolve(environment, reference));
}

jobject JNICALL NewGlobalRef(JNIEnv* env, jobject reference) {
    return NewLocalRef(env, reference);
}

jint JNICALL EnsureLocalCapacity(JNIEnv*, jint) {
    return 0;
}

jint JNICALL PushLocalFrame(JNIEnv*, jint) {
    return 0;
}

jobject JNICALL PopLocalFrame(JNIEnv*, jobject result) {
    return result;
}

jboolean JNICALL IsSameObject(JNIEnv* env, jobject left, jobject right) {
    auto* const environment = static_cast<Environment*>(env);
    return Resolve(environment, left) == Resolve(environment, right) ? JNI_TRUE : JNI_FALSE;
}

}  // namespace

void AddReferenceFunctions(JNINativeInterface_& table) {
    table.ExceptionOccurred = ExceptionOccurred;
    table.ExceptionCheck = ExceptionCheck;
    table.ExceptionDescribe = ExceptionDescribe;
    table.ExceptionClear = ExceptionClear;
    table.DeleteLocalRef = DeleteLocalRef;
    table.DeleteGlobalRef = DeleteLocalRef;
    table.NewLocalRef = NewLocalRef;
    table.NewGlobalRef = NewGlobalRef;
    table.EnsureLocalCapacity = EnsureLocalCapacity;
    table.PushLocalFrame = PushLocalFrame;
    table.PopLocalFrame = PopLocalFrame;
    table.IsSameObject = IsSameObject;
}

}  // namespace fake_jvm
