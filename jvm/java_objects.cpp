#include "jvm/java_objects.h"

namespace tarn {

jobject NewPrintStream(JNIEnv* env, jobject outputStream) {
    return NewJavaObject(env, "java/io/PrintStream", "(Ljava/io/OutputStream;)V", outputStream);
}

bool DescribePending(JNIEnv* env) {
    if (!env->ExceptionCheck()) return false;
    env->ExceptionDescribe();
    return true;
}

}  // namespace tarn
