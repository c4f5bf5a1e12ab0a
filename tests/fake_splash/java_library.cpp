// Plays the java.dll of a runtime: its splash library needs it, and it needs jvm.dll from another
// folder.

#include <jni.h>

extern "C" {

__declspec(dllimport) jint JNICALL JNI_GetDefaultJavaVMInitArgs(void* arguments);

__declspec(dllexport) int FakeJavaVersion() {
    // Only the address is taken: a call would appear in the log of the scripted JVM.
    const auto volatile needed = JNI_GetDefaultJavaVMInitArgs;
    return needed != nullptr ? 1 : 0;
}
}
