#include "jvm/java_thread.h"

#include "base/handles.h"
#include "jvm/create_jvm.h"
#include "jvm/main_class.h"

namespace tarn {
namespace {

constexpr DWORD kWaitRetryMs = 100;

DWORD RunJava(JavaLaunch& launch) {
    JNIEnv* env = nullptr;
    if (!CreateJvm(launch.errors, launch.options.ansiOptions, launch.options.outputFiles,
                   launch.machine, env)) {
        return 1;
    }
    if (!RunMainClass(env, launch.machine, launch.settings, launch.arguments, launch.readyEvent,
                      launch.splash, launch.errors)) {
        return 1;
    }
    // Only a service waits for the threads that the application has left behind.
    if (launch.settings.serviceMode && launch.machine.vm != nullptr) {
        launch.machine.vm->DestroyJavaVM();
        launch.machine.vm = nullptr;
    }
    return 0;
}

DWORD WINAPI JavaThreadProc(void* parameter) noexcept {
    if (parameter == nullptr) return 1;
    return RunJava(*static_cast<JavaLaunch*>(parameter));
}

/// Returns only when the thread has ended, because it works on records that are destroyed
/// afterwards. The wait's result decides: a thread may end with `STILL_ACTIVE` (259) as its code.
void WaitForEnd(HANDLE thread) {
    DWORD exitCode = STILL_ACTIVE;
    while (WaitForSingleObject(thread, INFINITE) == WAIT_FAILED) {
        if (GetExitCodeThread(thread, &exitCode) && exitCode != STILL_ACTIVE) return;
        Sleep(kWaitRetryMs);
    }
}

}  // namespace

std::uint64_t DefaultStackSize(const JvmEntryPoints& entryPoints) {
    JDK1_1InitArgs args{};
    args.version = JNI_VERSION_1_1;
    entryPoints.getDefaultInitArgs(&args);
    return args.javaStackSize > 0 ? static_cast<std::uint64_t>(args.javaStackSize) : 0;
}

DWORD RunJavaThread(JavaLaunch& launch) {
    const UniqueHandle thread(CreateThread(nullptr,
                                           static_cast<SIZE_T>(launch.options.threadStackSize),
                                           JavaThreadProc, &launch, 0, nullptr));
    if (!thread) return RunJava(launch);
    WaitForEnd(thread.get());
    DWORD exitCode = 1;
    GetExitCodeThread(thread.get(), &exitCode);
    return exitCode;
}

}  // namespace tarn
