#include "jvm/exit_application.h"

#include "jvm/java_objects.h"

namespace tarn {

bool ExitJavaApplication(JNIEnv* env, jint code) {
    const jclass system = env->FindClass("java/lang/System");
    if (system == nullptr) return false;
    const jmethodID exit = env->GetStaticMethodID(system, "exit", "(I)V");
    if (exit == nullptr) return false;
    env->CallStaticVoidMethod(system, exit, code);
    return !DescribePending(env);
}

}  // namespace tarn
