#pragma once

#include <jni.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/windows.h"

namespace fake_jvm {

enum class Kind { Plain, Class, String, ObjectArray, CharArray };

/// A Java object, as far as a launcher can tell. Nothing is freed unless the script says `forget`:
/// a process is short, and a reference that is used too late is found out.
struct Object {
    Kind kind = Kind::Plain;
    std::string className;          // of what it is; for a class: which one it is
    std::u16string text;            // a string's or a char array's units; a throwable's message
    std::vector<Object*> elements;  // of an array
    Object* stream = nullptr;       // what a PrintStream writes to
    HANDLE file = nullptr;          // a FileOutputStream's
    std::string bytes;              // a ByteArrayOutputStream's
};

/// A method of a class: what a jmethodID points to.
struct Method {
    Object* owner = nullptr;
    std::string name;
    std::string signature;
    bool isStatic = false;
};

/// One thread's view of the VM: what a JNIEnv* points to.
struct Environment : JNIEnv_ {
    DWORD thread = 0;
    bool attached = false;
    Object* pending = nullptr;
    int localReferences = 0;
    // All that were made, when they are to be forgotten.
    std::vector<jobject> references;
    std::vector<Object*> thrown;
};

Object* NewObject(Kind kind, std::string className);
Object* NewString(std::u16string text);
Object* NewThrowable(std::string className, std::string message);
Object* ClassNamed(std::string_view name);
Method* MethodOf(Object* owner, std::string_view name, std::string_view signature, bool isStatic);

/// A new local reference of the thread to the object; null for null.
jobject Refer(Environment* environment, Object* object);

/// The object behind a reference; null for null. A reference that was deleted, is another
/// thread's or is none at all is logged as a violation.
Object* Resolve(Environment* environment, jobject reference);

/// Ends the reference; doing so twice is a violation.
void EndReference(Environment* environment, jobject reference);

/// Frees the thread's references and what they led to, classes aside.
void ForgetReferences(Environment* environment);

/// The method behind an id; anything else is a violation and gives null.
Method* Resolve(jmethodID id);

/// The object for the log: `null`, `"text"`, `class java/lang/String`, `["a", "b"]`,
/// `object java/io/PrintStream`.
std::string Describe(const Object* object);

/// `com/example/Main.main([Ljava/lang/String;)V`
std::string Describe(const Method& method);

}  // namespace fake_jvm
