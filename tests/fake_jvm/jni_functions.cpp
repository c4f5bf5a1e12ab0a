// The table of functions that an environment points to. Those that no launcher needs end the
// process and say so in the log.

#include <jni.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "tests/fake_jvm/arguments.h"
#include "tests/fake_jvm/call_log.h"
#include "tests/fake_jvm/vm.h"

namespace fake_jvm {

namespace {

constexpr auto kWithPending = Call::Pending::kAllowed;

// The arguments of a call as a list or as an array.
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

// Every CallXxxMethod ends here. A constructor's receiver is made by the caller.
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
        NewObject(isString ? Kind::kString : Kind::kPlain, std::string(owner->className));
    const Method* const method = Resolve(id);
    if (method == nullptr) return nullptr;
    const std::vector<jvalue> values = ReadArguments(method->signature, last);
    Call call(env, function, Describe(*method) + DescribeArguments(environment, *method, values));
    if (call.Fails()) return nullptr;
    Invoke(environment, object, *method, values);
    return environment->pending == nullptr ? Refer(environment, object) : nullptr;
}

jmethodID FindMethod(JNIEnv* env, const char* function, jclass type, const char* name,
                     const char* signature, bool isStatic) {
    auto* const environment = static_cast<Environment*>(env);
    Object* const owner = Resolve(environment, type);
    Call call(env, function, Describe(owner) + ", \"" + name + "\", \"" + signature + '"');
    if (owner == nullptr) {
        LogViolation(std::string(function) + " in a null class");
        return nullptr;
    }
    if (call.Fails()) return nullptr;
    const Script& script = Script::Get();
    const std::string plain = name;
    const std::string full = plain + ' ' + signature;
    if (script.HasLine("no_method_silent " + plain) || script.HasLine("no_method_silent " + full)) {
        return nullptr;
    }
    if (script.HasLine("no_method " + plain) || script.HasLine("no_method " + full)) {
        Throw(environment, "java/lang/NoSuchMethodError", name);
        return nullptr;
    }
    return reinterpret_cast<jmethodID>(MethodOf(owner, name, signature, isStatic));
}

jint JNICALL GetVersion(JNIEnv* env) {
    const Call call(env, "GetVersion", "");
    return 0x00010008;
}

jclass JNICALL FindClass(JNIEnv* env, const char* name) {
    Call call(env, "FindClass", QuoteText(FromUtf8(name)));
    if (call.Fails()) return nullptr;
    const std::string wanted = name;
    if (Script::Get().HasLine("no_class_silent " + wanted)) return nullptr;
    if (Script::Get().HasLine("no_class " + wanted) || wanted.find('.') != std::string::npos) {
        Throw(call.environment(), "java/lang/NoClassDefFoundError", wanted);
        return nullptr;
    }
    return static_cast<jclass>(Refer(call.environment(), ClassNamed(wanted)));
}

jthrowable JNICALL ExceptionOccurred(JNIEnv* env) {
    const Call call(env, "ExceptionOccurred", "", kWithPending);
    return static_cast<jthrowable>(Refer(call.environment(), call.environment()->pending));
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
    EndReference(environment, reference);
}

jobject JNICALL NewLocalRef(JNIEnv* env, jobject reference) {
    auto* const environment = static_cast<Environment*>(env);
    return Refer(environment, Resolve(environment, reference));
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

jclass JNICALL GetObjectClass(JNIEnv* env, jobject reference) {
    auto* const environment = static_cast<Environment*>(env);
    const Object* const object = Resolve(environment, reference);
    Call call(env, "GetObjectClass", Describe(object));
    if (object == nullptr) LogViolation("GetObjectClass of null");
    if (call.Fails() || object == nullptr) return nullptr;
    return static_cast<jclass>(Refer(environment, ClassNamed(object->className)));
}

jmethodID JNICALL GetMethodID(JNIEnv* env, jclass type, const char* name, const char* signature) {
    return FindMethod(env, "GetMethodID", type, name, signature, false);
}

jmethodID JNICALL GetStaticMethodID(JNIEnv* env, jclass type, const char* name,
                                    const char* signature) {
    return FindMethod(env, "GetStaticMethodID", type, name, signature, true);
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

// The three forms of one kind of call; `member` is the jvalue's, `Result` what is returned.
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

std::u16string Units(const jchar* units, jsize length) {
    return {reinterpret_cast<const char16_t*>(units), static_cast<std::size_t>(length)};
}

jstring JNICALL NewStringFromUnits(JNIEnv* env, const jchar* units, jsize length) {
    const std::u16string text = Units(units, length);
    Call call(env, "NewString", QuoteText(text));
    if (call.Fails()) return nullptr;
    return static_cast<jstring>(Refer(call.environment(), NewString(text)));
}

jstring JNICALL NewStringUTF(JNIEnv* env, const char* bytes) {
    const std::u16string text = FromUtf8(bytes);
    Call call(env, "NewStringUTF", QuoteText(text));
    if (call.Fails()) return nullptr;
    return static_cast<jstring>(Refer(call.environment(), NewString(text)));
}

jsize JNICALL GetStringLength(JNIEnv* env, jstring string) {
    const Object* const object = Resolve(static_cast<Environment*>(env), string);
    const Call call(env, "GetStringLength", Describe(object));
    return object != nullptr ? static_cast<jsize>(object->text.size()) : 0;
}

const jchar* JNICALL GetStringChars(JNIEnv* env, jstring string, jboolean* isCopy) {
    const Object* const object = Resolve(static_cast<Environment*>(env), string);
    Call call(env, "GetStringChars", Describe(object));
    if (call.Fails() || object == nullptr) return nullptr;
    if (isCopy != nullptr) *isCopy = JNI_FALSE;
    return reinterpret_cast<const jchar*>(object->text.c_str());
}

void JNICALL ReleaseStringChars(JNIEnv* env, jstring string, const jchar*) {
    const Call call(env, "ReleaseStringChars",
                    Describe(Resolve(static_cast<Environment*>(env), string)), kWithPending);
}

// Zero becomes two bytes, and each half of a surrogate pair three of its own.
std::string ModifiedUtf8(const std::u16string& text) {
    std::string bytes;
    const auto put = [&bytes](unsigned byte) { bytes += static_cast<char>(byte); };
    for (const char16_t each : text) {
        const unsigned unit = each;
        if (unit != 0 && unit < 0x80) {
            put(unit);
        } else if (unit < 0x800) {
            put(0xC0U | (unit >> 6U));
            put(0x80U | (unit & 0x3FU));
        } else {
            put(0xE0U | (unit >> 12U));
            put(0x80U | ((unit >> 6U) & 0x3FU));
            put(0x80U | (unit & 0x3FU));
        }
    }
    return bytes;
}

const char* JNICALL GetStringUTFChars(JNIEnv* env, jstring string, jboolean* isCopy) {
    const Object* const object = Resolve(static_cast<Environment*>(env), string);
    Call call(env, "GetStringUTFChars", Describe(object));
    if (object == nullptr) LogViolation("GetStringUTFChars of null");
    if (call.Fails() || object == nullptr) return nullptr;
    if (isCopy != nullptr) *isCopy = JNI_TRUE;
    const std::string bytes = ModifiedUtf8(object->text);
    auto* const copy = static_cast<char*>(std::malloc(bytes.size() + 1));
    std::memcpy(copy, bytes.c_str(), bytes.size() + 1);
    return copy;
}

void JNICALL ReleaseStringUTFChars(JNIEnv* env, jstring string, const char* characters) {
    const Call call(env, "ReleaseStringUTFChars",
                    Describe(Resolve(static_cast<Environment*>(env), string)), kWithPending);
    // Overwritten first: who reads them afterwards reads nonsense.
    if (characters == nullptr) return;
    std::memset(const_cast<char*>(characters), '~', std::strlen(characters));
    std::free(const_cast<char*>(characters));
}

jsize JNICALL GetArrayLength(JNIEnv* env, jarray array) {
    const Object* const object = Resolve(static_cast<Environment*>(env), array);
    const Call call(env, "GetArrayLength", Describe(object));
    return object != nullptr ? static_cast<jsize>(object->elements.size()) : 0;
}

jobjectArray JNICALL NewObjectArray(JNIEnv* env, jsize length, jclass type, jobject initial) {
    auto* const environment = static_cast<Environment*>(env);
    Object* const element = Resolve(environment, initial);
    const Object* const elementType = Resolve(environment, type);
    Call call(env, "NewObjectArray",
              std::to_string(length) + ", " + Describe(elementType) + ", " + Describe(element));
    if (elementType == nullptr) LogViolation("NewObjectArray of a null class");
    if (call.Fails()) return nullptr;
    Object* const array = NewObject(Kind::kObjectArray, "[Ljava/lang/Object;");
    array->elements.assign(static_cast<std::size_t>(length), element);
    return static_cast<jobjectArray>(Refer(environment, array));
}

jobject JNICALL GetObjectArrayElement(JNIEnv* env, jobjectArray array, jsize index) {
    auto* const environment = static_cast<Environment*>(env);
    const Object* const object = Resolve(environment, array);
    const Call call(env, "GetObjectArrayElement", std::to_string(index));
    return Refer(environment, object->elements.at(static_cast<std::size_t>(index)));
}

void JNICALL SetObjectArrayElement(JNIEnv* env, jobjectArray array, jsize index, jobject value) {
    auto* const environment = static_cast<Environment*>(env);
    Object* const object = Resolve(environment, array);
    Object* const element = Resolve(environment, value);
    Call call(env, "SetObjectArrayElement", std::to_string(index) + ", " + Describe(element));
    if (call.Fails()) return;
    if (object == nullptr || static_cast<std::size_t>(index) >= object->elements.size()) {
        LogViolation("SetObjectArrayElement outside its array");
        return;
    }
    object->elements[static_cast<std::size_t>(index)] = element;
}

jcharArray JNICALL NewCharArray(JNIEnv* env, jsize length) {
    Call call(env, "NewCharArray", std::to_string(length));
    if (call.Fails()) return nullptr;
    Object* const array = NewObject(Kind::kCharArray, "[C");
    array->text.assign(static_cast<std::size_t>(length), u'\0');
    return static_cast<jcharArray>(Refer(call.environment(), array));
}

void JNICALL SetCharArrayRegion(JNIEnv* env, jcharArray array, jsize start, jsize length,
                                const jchar* units) {
    Object* const object = Resolve(static_cast<Environment*>(env), array);
    const std::u16string text = Units(units, length);
    Call call(env, "SetCharArrayRegion",
              std::to_string(start) + ", " + std::to_string(length) + ", " + QuoteText(text));
    if (call.Fails()) return;
    if (object == nullptr || start != 0 || text.size() != object->text.size()) {
        LogViolation("SetCharArrayRegion outside its array");
        return;
    }
    object->text = text;
}

jint JNICALL GetJavaVM(JNIEnv* env, JavaVM** machine) {
    const Call call(env, "GetJavaVM", "");
    *machine = &VirtualMachine::Get().interface;
    return JNI_OK;
}

jboolean JNICALL IsSameObject(JNIEnv* env, jobject left, jobject right) {
    auto* const environment = static_cast<Environment*>(env);
    return Resolve(environment, left) == Resolve(environment, right) ? JNI_TRUE : JNI_FALSE;
}

constexpr std::size_t kSlots = sizeof(JNINativeInterface_) / sizeof(void*);

template <std::size_t kSlot>
void Unscripted() {
    LogViolation("function " + std::to_string(kSlot) + " of the table is not scripted");
    TerminateProcess(GetCurrentProcess(), 0xFA4EU);
}

template <std::size_t... kIndices>
void FillUnscripted(void** slots, std::index_sequence<kIndices...>) {
    ((slots[kIndices] = reinterpret_cast<void*>(&Unscripted<kIndices>)), ...);
}

JNINativeInterface_ MakeTable() {
    JNINativeInterface_ table{};
    FillUnscripted(reinterpret_cast<void**>(&table), std::make_index_sequence<kSlots>());
    table.GetVersion = GetVersion;
    table.FindClass = FindClass;
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
    table.GetObjectClass = GetObjectClass;
    table.GetMethodID = GetMethodID;
    table.GetStaticMethodID = GetStaticMethodID;
    table.NewObject = NewObjectE;
    table.NewObjectV = NewObjectV;
    table.NewObjectA = NewObjectA;
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
    table.NewString = NewStringFromUnits;
    table.NewStringUTF = NewStringUTF;
    table.GetStringLength = GetStringLength;
    table.GetStringChars = GetStringChars;
    table.ReleaseStringChars = ReleaseStringChars;
    table.GetStringUTFChars = GetStringUTFChars;
    table.ReleaseStringUTFChars = ReleaseStringUTFChars;
    table.GetArrayLength = GetArrayLength;
    table.NewObjectArray = NewObjectArray;
    table.GetObjectArrayElement = GetObjectArrayElement;
    table.SetObjectArrayElement = SetObjectArrayElement;
    table.NewCharArray = NewCharArray;
    table.SetCharArrayRegion = SetCharArrayRegion;
    table.GetJavaVM = GetJavaVM;
    return table;
}

}  // namespace

const JNINativeInterface_* Functions() {
    static const JNINativeInterface_ table = MakeTable();
    return &table;
}

}  // namespace fake_jvm
