#pragma once

#include <jni.h>

namespace tarn {

/// The record by which a JVM is asked for its defaults in the oldest version of the interface. It
/// has gone from the JDK's header, but runtimes still answer it.
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
    /// Null for a runtime that does not offer it.
    jclass(JNICALL* findClassFromBootLoader)(JNIEnv* env, const char* name) = nullptr;
};

/// The JVM of this process.
struct JvmInstance {
    JvmEntryPoints entryPoints;
    /// Written by the Java thread when the JVM is created, before the ready event is set; null
    /// until then and again when it has been destroyed.
    JavaVM* vm = nullptr;
};

}  // namespace tarn
