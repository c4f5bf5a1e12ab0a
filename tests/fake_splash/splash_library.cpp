// The scripted splashscreen.dll, which logs its calls to the log of the scripted jvm.dll. Like a
// real one it needs java.dll in the same folder.

#include "base/windows.h"
#include "tests/fake_jvm/call_log.h"

extern "C" {

__declspec(dllimport) int FakeJavaVersion();

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) {
        fake_jvm::LogErrorMode("the load of splashscreen.dll");
    }
    return TRUE;
}

void FakeSplashInit() {
    fake_jvm::Log("SplashInit() java " + std::to_string(FakeJavaVersion()) + " thread " +
                  std::to_string(GetCurrentThreadId()));
}

void FakeSplashLoadFile(const char* fileName) {
    fake_jvm::Log("SplashLoadFile(" + fake_jvm::QuoteBytes(fileName) + ')');
}

void FakeSplashSetFileJarName(const char* fileName, const char* jarName) {
    fake_jvm::Log("SplashSetFileJarName(" + fake_jvm::QuoteBytes(fileName) + ", " +
                  fake_jvm::QuoteBytes(jarName) + ')');
}

void FakeSplashClose() {
    fake_jvm::Log("SplashClose()");
}
}
