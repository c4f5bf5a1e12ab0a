#include "jvm/java_thread.h"

#include "base/handles.h"
#include "jvm/create_jvm.h"
#include "jvm/main_class.h"

namespace tarn {
namespace {

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
    DWORD exitCode = 1;
    // Again should the wait fail: what the thread works on is destroyed after this.
    do {
        WaitForSingleObject(thread.get(), INFINITE);
    } while (GetExitCodeThread(thread.get(), &exitCode) && exitCode == STILL_ACTIVE);
    return exitCode;
}

}  // namespace tarn
