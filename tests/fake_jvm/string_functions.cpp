// The functions of strings.

#include <cstdlib>
#include <cstring>

#include "tests/fake_jvm/call_log.h"
#include "tests/fake_jvm/function_table.h"
#include "tests/fake_jvm/vm.h"

namespace fake_jvm {

namespace {

constexpr auto kWithPending = Call::Pending::Allowed;

std::u16string Units(const jchar* units, jsize length) {
    return {reinterpret_cast<const char16_t*>(units), static_cast<std::size_t>(length)};
}

jstring JNICALL NewStringFromUnits(JNIEnv* env, const jchar* units, jsize length) {
    const std::u16string text = Units(units, length);
    Call call(env, "NewString", QuoteText(text));
    if (call.Fails()) return nullptr;
    return static_cast<jstring>(NewReference(call.environment(), NewString(text)));
}

jstring JNICALL NewStringUTF(JNIEnv* env, const char* bytes) {
    const std::u16string text = FromUtf8(bytes);
    Call call(env, "NewStringUTF", QuoteText(text));
    if (call.Fails()) return nullptr;
    return static_cast<jstring>(NewReference(call.environment(), NewString(text)));
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

// Zero becomes two bytes, and each half of a surrogate pair three bytes.
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
    // Overwritten first, so that a use after the release is noticed.
    if (characters == nullptr) return;
    std::memset(const_cast<char*>(characters), '~', std::strlen(characters));
    std::free(const_cast<char*>(characters));
}

}  // namespace

void AddStringFunctions(JNINativeInterface_& table) {
    table.NewString = NewStringFromUnits;
    table.NewStringUTF = NewStringUTF;
    table.GetStringLength = GetStringLength;
    table.GetStringChars = GetStringChars;
    table.ReleaseStringChars = ReleaseStringChars;
    table.GetStringUTFChars = GetStringUTFChars;
    table.ReleaseStringUTFChars = ReleaseStringUTFChars;
}

}  // namespace fake_jvm
