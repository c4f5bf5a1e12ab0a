#include "jvm/java_thread.h"

#include "base/handles.h"
#include "base/thread.h"
#include "jvm/jvm_loader.h"

namespace tarn {
namespace {

constexpr DWORD kWaitRetryMs = 100;

DWORD RunJava(JavaLaunch& launch) {
    JNIEnv* env = nullptr;
    if (!CreateJvm(launch.errors, launch.options, launch.jvm, env)) return 1;
    if (!RunMainClass(env, launch)) return 1;
    // Only a service waits for the application's other threads.
    if (launch.settings.serviceMode && launch.jvm.javaVm != nullptr) {
        launch.jvm.javaVm->DestroyJavaVM();
        launch.jvm.javaVm = nullptr;
    }
    return 0;
}

DWORD WINAPI JavaThreadProc(void* parameter) noexcept {
    if (parameter == nullptr) return 1;
    return RunJava(*static_cast<JavaLaunch*>(parameter));
}

}  // namespace

DWORD RunJavaThread(JavaLaunch& launch) {
    std::uint64_t stackSize = launch.options.javaThreadStackSize;
    if (stackSize == 0) stackSize = DefaultStackSize(launch.jvm.entryPoints);
    const UniqueHandle thread(
        CreateThread(nullptr, static_cast<SIZE_T>(stackSize), JavaThreadProc, &launch, 0, nullptr));
    if (!thread) return RunJava(launch);
    // The records that the thread uses are destroyed after this.
    while (!HasEnded(thread.get(), INFINITE)) Sleep(kWaitRetryMs);
    DWORD exitCode = 1;
    GetExitCodeThread(thread.get(), &exitCode);
    return exitCode;
}

}  // namespace tarn
