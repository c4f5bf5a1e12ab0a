#pragma once

#include <jni.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/windows.h"

namespace fake_jvm {

enum class Kind { Plain, Class, String, ObjectArray, CharArray };

/// A Java object as JNI shows it. Nothing is freed unless the script says `forget`: a process is
/// short, and a reference used too late is detected.
struct Object {
    Kind kind = Kind::Plain;
    std::string className;  // its class; for a class: the class it represents
    std::u16string text;    // the units of a string or a char array; the message of a throwable
    std::vector<Object*> elements;  // of an array
    Object* stream = nullptr;       // the OutputStream of a PrintStream
    HANDLE file = nullptr;          // of a FileOutputStream
    std::string bytes;              // of a ByteArrayOutputStream
};

/// A method of a class: the target of a jmethodID.
struct Method {
    Object* owner = nullptr;
    std::string name;
    std::string signature;
    bool isStatic = false;
};

/// The state of the VM for one thread: the target of a JNIEnv*.
struct Environment : JNIEnv_ {
    DWORD thread = 0;
    bool attached = false;
    Object* pending = nullptr;
    int localReferences = 0;
    // All references of the thread, if they are to be forgotten.
    std::vector<jobject> references;
    std::vector<Object*> thrown;
};

Object* NewObject(Kind kind, std::string className);
Object* NewString(std::u16string text);
Object* NewThrowable(std::string className, std::string message);
Object* ClassNamed(std::string_view name);
Method* MethodOf(Object* owner, std::string_view name, std::string_view signature, bool isStatic);

/// Creates a local reference of the thread to the object; null for null.
jobject NewReference(Environment* environment, Object* object);

/// The object of a reference; null for null. A reference that is deleted, invalid or another
/// thread's is logged as a violation.
Object* Resolve(Environment* environment, jobject reference);

/// Deletes the reference; deleting it twice is a violation.
void DeleteReference(Environment* environment, jobject reference);

/// Frees the thread's references and their objects, except classes.
void ForgetReferences(Environment* environment);

/// The method of an id; anything else is a violation and returns null.
Method* Resolve(jmethodID id);

/// The object in the log's notation: `null`, `"text"`, `class java/lang/String`, `["a", "b"]`,
/// `object java/io/PrintStream`.
std::string Describe(const Object* object);

/// `com/example/Main.main([Ljava/lang/String;)V`
std::string Describe(const Method& method);

}  // namespace fake_jvm
