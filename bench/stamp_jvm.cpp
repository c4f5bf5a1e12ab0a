// A jvm.dll that notes when JNI_CreateJavaVM was called and ends the process: with it, the time
// from the start of a process to the creation of the JVM is all that is measured.
#include <cstdio>

#include <jni.h>

#include "base/windows.h"

#include <mmsystem.h>

// The system libraries that every runtime's own jvm.dll imports, so that a host has the cost of
// their loading where it has it in earnest.
extern const void* const volatile kImportsOfARuntime[];
const void* const volatile kImportsOfARuntime[] = {
    reinterpret_cast<const void*>(MessageBoxW), reinterpret_cast<const void*>(RegCloseKey),
    reinterpret_cast<const void*>(GetFileVersionInfoSizeW),
    reinterpret_cast<const void*>(timeGetTime)};

extern "C" {

JNIEXPORT jint JNICALL JNI_GetDefaultJavaVMInitArgs(void*) {
    return JNI_OK;
}

JNIEXPORT jint JNICALL JNI_CreateJavaVM(JavaVM**, void**, void*) {
    LARGE_INTEGER now{};
    LARGE_INTEGER perSecond{};
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&perSecond);
    const double nanoseconds =
        static_cast<double>(now.QuadPart) / static_cast<double>(perSecond.QuadPart) * 1e9;
    if (FILE* file = _wfopen(_wgetenv(L"TARN_BENCH_STAMP"), L"wb")) {
        std::fprintf(file, "%.0f\n", nanoseconds);
        std::fclose(file);
    }
    ExitProcess(0);
}
}
