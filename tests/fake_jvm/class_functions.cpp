// The functions that find classes and methods.

#include "tests/fake_jvm/call_log.h"
#include "tests/fake_jvm/function_table.h"
#include "tests/fake_jvm/vm.h"

namespace fake_jvm {

namespace {

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
    return static_cast<jclass>(NewReference(call.environment(), ClassNamed(wanted)));
}

jclass JNICALL GetObjectClass(JNIEnv* env, jobject reference) {
    auto* const environment = static_cast<Environment*>(env);
    const Object* const object = Resolve(environment, reference);
    Call call(env, "GetObjectClass", Describe(object));
    if (object == nullptr) LogViolation("GetObjectClass of null");
    if (call.Fails() || object == nullptr) return nullptr;
    return static_cast<jclass>(NewReference(environment, ClassNamed(object->className)));
}

jmethodID JNICALL GetMethodID(JNIEnv* env, jclass type, const char* name, const char* signature) {
    return FindMethod(env, "GetMethodID", type, name, signature, false);
}

jmethodID JNICALL GetStaticMethodID(JNIEnv* env, jclass type, const char* name,
                                    const char* signature) {
    return FindMethod(env, "GetStaticMethodID", type, name, signature, true);
}

jint JNICALL GetJavaVM(JNIEnv* env, JavaVM** machine) {
    const Call call(env, "GetJavaVM", "");
    *machine = &VirtualMachine::Get().interface;
    return JNI_OK;
}

}  // namespace

void AddClassFunctions(JNINativeInterface_& table) {
    table.GetVersion = GetVersion;
    table.FindClass = FindClass;
    table.GetObjectClass = GetObjectClass;
    table.GetMethodID = GetMethodID;
    table.GetStaticMethodID = GetStaticMethodID;
    table.GetJavaVM = GetJavaVM;
}

}  // namespace fake_jvm
