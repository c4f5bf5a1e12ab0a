// What a runtime's java.dll is to its splash library: a neighbour that itself needs jvm.dll from
// another folder.

#include <jni.h>

extern "C" {

__declspec(dllimport) jint JNICALL JNI_GetDefaultJavaVMInitArgs(void* arguments);

__declspec(dllexport) int FakeJavaVersion() {
    // Asked for its address only: a call would stand in the log of the scripted JVM.
    const auto volatile needed = JNI_GetDefaultJavaVMInitArgs;
    return needed != nullptr ? 1 : 0;
}
}
