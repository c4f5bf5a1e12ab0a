// The functions of arrays.

#include "tests/fake_jvm/call_log.h"
#include "tests/fake_jvm/function_table.h"
#include "tests/fake_jvm/vm.h"

namespace fake_jvm {

namespace {

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
    Object* const array = NewObject(Kind::ObjectArray, "[Ljava/lang/Object;");
    array->elements.assign(static_cast<std::size_t>(length), element);
    return static_cast<jobjectArray>(NewReference(environment, array));
}

jobject JNICALL GetObjectArrayElement(JNIEnv* env, jobjectArray array, jsize index) {
    auto* const environment = static_cast<Environment*>(env);
    const Object* const object = Resolve(environment, array);
    const Call call(env, "GetObjectArrayElement", std::to_string(index));
    return NewReference(environment, object->elements.at(static_cast<std::size_t>(index)));
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
    Object* const array = NewObject(Kind::CharArray, "[C");
    array->text.assign(static_cast<std::size_t>(length), u'\0');
    return static_cast<jcharArray>(NewReference(call.environment(), array));
}

void JNICALL SetCharArrayRegion(JNIEnv* env, jcharArray array, jsize start, jsize length,
                                const jchar* units) {
    Object* const object = Resolve(static_cast<Environment*>(env), array);
    const std::u16string text(reinterpret_cast<const char16_t*>(units),
                              static_cast<std::size_t>(length));
    Call call(env, "SetCharArrayRegion",
              std::to_string(start) + ", " + std::to_string(length) + ", " + QuoteText(text));
    if (call.Fails()) return;
    if (object == nullptr || start != 0 || text.size() != object->text.size()) {
        LogViolation("SetCharArrayRegion outside its array");
        return;
    }
    object->text = text;
}

}  // namespace

void AddArrayFunctions(JNINativeInterface_& table) {
    table.GetArrayLength = GetArrayLength;
    table.NewObjectArray = NewObjectArray;
    table.GetObjectArrayElement = GetObjectArrayElement;
    table.SetObjectArrayElement = SetObjectArrayElement;
    table.NewCharArray = NewCharArray;
    table.SetCharArrayRegion = SetCharArrayRegion;
}

}  // namespace fake_jvm
