// The functions that call methods and constructors.

#include "tests/fake_jvm/arguments.h"
#include "tests/fake_jvm/call_log.h"
#include "tests/fake_jvm/function_table.h"
#include "tests/fake_jvm/vm.h"

namespace fake_jvm {

namespace {

// The arguments of a call, as a va_list or as an array.
template <typename Last>
std::vector<jvalue> Values(const Method* method, Last last) {
    return method != nullptr ? ReadArguments(method->signature, last) : std::vector<jvalue>();
}

std::string DescribeArguments(Environment* environment, const Method& method,
                              const std::vector<jvalue>& values) {
    std::string text;
    std::size_t index = 0;
    for (std::size_t at = 1; at < method.signature.size() && method.signature[at] != ')'; ++at) {
        const jvalue& value = values[index++];
        text += ", ";
        switch (method.signature[at]) {
            case 'Z':
                text += value.z != 0 ? "true" : "false";
                break;
            case 'L':
            case '[':
                text += Describe(Resolve(environment, value.l));
                break;
            default:
                text += std::to_string(value.i);
                break;
        }
        while (method.signature[at] == '[') ++at;
        if (method.signature[at] == 'L') at = method.signature.find(';', at);
    }
    return text;
}

// Every CallXxxMethod calls this. The caller creates the receiver of a constructor.
jvalue CallMethod(JNIEnv* env, const char* function, Object* receiver, jmethodID id,
                  const std::vector<jvalue>& values, bool isStatic) {
    Method* const method = Resolve(id);
    if (method == nullptr) return {};
    Call call(
        env, function,
        Describe(*method) + DescribeArguments(static_cast<Environment*>(env), *method, values));
    if (receiver == nullptr) LogViolation(std::string(function) + " on null");
    if (method->isStatic != isStatic) {
        LogViolation(std::string(function) + " of the wrong kind of method");
    }
    if (call.Fails()) return {};
    call.Unlock();
    return Invoke(call.environment(), receiver, *method, values);
}

template <typename Last>
jobject Construct(JNIEnv* env, const char* function, jclass type, jmethodID id, Last last) {
    auto* const environment = static_cast<Environment*>(env);
    const Object* const owner = Resolve(environment, type);
    if (owner == nullptr) {
        LogViolation(std::string(function) + " of a null class");
        return nullptr;
    }
    const bool isString = owner->className == "java/lang/String";
    Object* const object =
        NewObject(isString ? Kind::String : Kind::Plain, std::string(owner->className));
    const Method* const method = Resolve(id);
    if (method == nullptr) return nullptr;
    const std::vector<jvalue> values = ReadArguments(method->signature, last);
    Call call(env, function, Describe(*method) + DescribeArguments(environment, *method, values));
    if (call.Fails()) return nullptr;
    Invoke(environment, object, *method, values);
    return environment->pending == nullptr ? NewReference(environment, object) : nullptr;
}

jobject JNICALL NewObjectV(JNIEnv* env, jclass type, jmethodID id, va_list list) {
    return Construct(env, "NewObject", type, id, list);
}

jobject JNICALL NewObjectA(JNIEnv* env, jclass type, jmethodID id, const jvalue* values) {
    return Construct(env, "NewObject", type, id, values);
}

jobject JNICALL NewObjectE(JNIEnv* env, jclass type, jmethodID id, ...) {
    va_list list;
    va_start(list, id);
    jobject const result = NewObjectV(env, type, id, list);
    va_end(list);
    return result;
}

// The three forms of one kind of call; `member` is that of jvalue, `Result` the return type.
#define FAKE_JVM_CALLS(Name, Receiver, Result, member, isStatic)                                 \
    Result JNICALL Name##V(JNIEnv* env, Receiver receiver, jmethodID id, va_list list) {         \
        return static_cast<Result>(CallMethod(env, #Name,                                        \
                                              Resolve(static_cast<Environment*>(env), receiver), \
                                              id, Values(Resolve(id), list), isStatic)           \
                                       .member);                                                 \
    }                                                                                            \
    Result JNICALL Name##A(JNIEnv* env, Receiver receiver, jmethodID id, const jvalue* values) { \
        return static_cast<Result>(CallMethod(env, #Name,                                        \
                                              Resolve(static_cast<Environment*>(env), receiver), \
                                              id, Values(Resolve(id), values), isStatic)         \
                                       .member);                                                 \
    }                                                                                            \
    Result JNICALL Name(JNIEnv* env, Receiver receiver, jmethodID id, ...) {                     \
        va_list list;                                                                            \
        va_start(list, id);                                                                      \
        const auto values = Values(Resolve(id), list);                                           \
        va_end(list);                                                                            \
        return static_cast<Result>(CallMethod(env, #Name,                                        \
                                              Resolve(static_cast<Environment*>(env), receiver), \
                                              id, values, isStatic)                              \
                                       .member);                                                 \
    }
FAKE_JVM_CALLS(CallObjectMethod, jobject, jobject, l, false)
FAKE_JVM_CALLS(CallVoidMethod, jobject, void, j, false)
FAKE_JVM_CALLS(CallIntMethod, jobject, jint, i, false)
FAKE_JVM_CALLS(CallBooleanMethod, jobject, jboolean, z, false)
FAKE_JVM_CALLS(CallStaticObjectMethod, jclass, jobject, l, true)
FAKE_JVM_CALLS(CallStaticVoidMethod, jclass, void, j, true)
FAKE_JVM_CALLS(CallStaticIntMethod, jclass, jint, i, true)
#undef FAKE_JVM_CALLS

}  // namespace

void AddCallFunctions(JNINativeInterface_& table) {
#define FAKE_JVM_SLOTS(Name) \
    table.Name = Name;       \
    table.Name##V = Name##V; \
    table.Name##A = Name##A
    FAKE_JVM_SLOTS(CallObjectMethod);
    FAKE_JVM_SLOTS(CallVoidMethod);
    FAKE_JVM_SLOTS(CallIntMethod);
    FAKE_JVM_SLOTS(CallBooleanMethod);
    FAKE_JVM_SLOTS(CallStaticObjectMethod);
    FAKE_JVM_SLOTS(CallStaticVoidMethod);
    FAKE_JVM_SLOTS(CallStaticIntMethod);
#undef FAKE_JVM_SLOTS
    table.NewObject = NewObjectE;
    table.NewObjectV = NewObjectV;
    table.NewObjectA = NewObjectA;
}

}  // namespace fake_jvm
