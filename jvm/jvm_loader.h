#pragma once

#include <jni.h>

#include <cstdint>
#include <string>

#include "jvm/jvm_options.h"
#include "ui/messages/error_reporter.h"

namespace tarn {

/// Argument record of `JNI_GetDefaultJavaVMInitArgs` in version 1.1 of the JNI. Present JDK headers
/// do not declare it; runtimes still fill it in.
struct JDK1_1InitArgs {
    jint version;
    char** properties;
    jint checkSource;
    jint nativeStackSize;
    jint javaStackSize;
    jint minHeapSize;
    jint maxHeapSize;
    jint verifyMode;
    char* classPath;
    void* vfprintf;
    void* exit;
    void* abort;
    jint enableClassGc;
    jint enableVerboseGc;
    jint disableAsyncGc;
    jint verbose;
    jboolean debugging;
    jint debugPort;
};

/// The functions of `jvm.dll` that the launcher calls.
struct JvmEntryPoints {
    jint(JNICALL* createJavaVm)(JavaVM** vm, void** env, void* args) = nullptr;
    jint(JNICALL* getDefaultInitArgs)(void* args) = nullptr;
    /// `JVM_FindClassFromBootLoader`; null when the runtime does not export it.
    jclass(JNICALL* findClassFromBootLoader)(JNIEnv* env, const char* name) = nullptr;
};

/// The JVM of this process.
struct JvmInstance {
    JvmEntryPoints entryPoints;
    /// Null until the JVM is created and after it is destroyed. Written by the Java thread, before
    /// it sets the ready event that other threads wait for.
    JavaVM* javaVm = nullptr;
};

/// Loads `jvm.dll` (`LoadLibraryW`) and resolves its entry points. Returns false after reporting a
/// library that cannot be loaded or lacks a required entry point. The library is never unloaded: it
/// must outlive the JVM, which lives as long as the process.
bool LoadJvmLibrary(const ErrorReporter& errors, const std::wstring& jvmLibraryPath,
                    JvmEntryPoints& entryPoints);

/// The runtime's default stack size of Java threads in bytes (`JNI_GetDefaultJavaVMInitArgs`); 0
/// when it has none.
std::uint64_t DefaultStackSize(const JvmEntryPoints& entryPoints);

/// Creates the JVM (`JNI_CreateJavaVM`) with the options, followed by the abort and the exit hook,
/// and redirects its standard streams. The calling thread becomes the JVM's main thread, and `env`
/// is valid on it only. Returns false after reporting a JVM that cannot be created.
bool CreateJvm(const ErrorReporter& errors, const JvmOptions& options, JvmInstance& jvm,
               JNIEnv*& env);

}  // namespace tarn
